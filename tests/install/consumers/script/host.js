// SPDX-License-Identifier: LGPL-2.1-or-later
// Slots are functions, trailing arguments may be left out, lists can be made arrays, and signals have connect(). A hash,
// as of supplyColorHash(), stays closed to a script: its host hands it over as a QVariantMap.
(function () {
    const lines = [];
    const say = (what, value) => lines.push(what + " " + JSON.stringify(value));

    say("opened", supplies.setup(catalogue));
    say("width", supplies.supplyWidth("00144463"));
    say("material", supplies.supplyMaterialName("00144463"));
    say("panel 1", supplies.supplyRibbonColorName("RW530903", 1));
    say("panel not given", supplies.supplyRibbonColorName("RW530903"));
    const heats = supplies.supplyRibbonHeats("RW530901", "00144463");
    say("heats", heats);
    say("heats are an array", Array.isArray(Array.from(heats)));
    say("heats, mapped", heats.map(heat => heat + 1));

    supplies.supplyChangedSignal.connect(sku => say("> supplyChangedSignal", sku));
    supplies.notifySupplySensor.connect(sensor => say("> notifySupplySensor", sensor));
    supplies.ribbonChangedSignal.connect(skus => say("> ribbonChangedSignal", skus));
    supplies.alertInvalidRibbon2SupplyCombo.connect(() => say("> alertInvalidRibbon2SupplyCombo", null));
    supplies.setSupplyId("32100C0C8021004060000000");
    supplies.setRibbonIds(["14", "5"]);
    say("width of the installed roll", supplies.supplyWidth());

    // A hash is a closed value: it can be passed on, and not looked into.
    const hash = supplies.supplyColorHash();
    say("hash", typeof hash);
    say("its keys", Object.keys(hash));
    say("White in it", typeof hash["White"]);

    // Private slots are for hosts that call by name, which a script cannot.
    say("private slot", typeof supplies.checkRibbonSupplyCombo);
    return lines.join("\n");
})();
