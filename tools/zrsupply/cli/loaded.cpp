// SPDX-License-Identifier: LGPL-2.1-or-later
#include "cli/loaded.h"

#include <QtCore/QRegularExpression>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

bool looksLikeTag(const QString &text)
{
    static const QRegularExpression digits(u"^[0-9A-Fa-f]{20,}$"_s);
    return digits.match(text).hasMatch();
}

void takeInRoll(Catalogue &catalogue, const QString &roll, Answer &answer)
{
    ZrSupplyDatabase &library = catalogue.library();
    if (!looksLikeTag(roll)) {
        catalogue.requireRoll(roll, true);
        library.setSupplySKU(roll);
        return;
    }
    library.setSupplyId(roll);
    if (library.supplySKU() == "UnknownSupply"_L1)
        answer.addNote(u"no roll on offer has this tag: what is read of the roll is read from its tag."_s);
    if (library.supplySKU() == unsetString) {
        answer.addNote(
            u"a tag of revision 2 or more leaves the SKU as it was; here there was none, so the checks find"
            " no roll."_s);
    }
}

QString ribbonSku(Catalogue &catalogue, const QString &word, Answer &answer)
{
    ZrSupplyDatabase &library = catalogue.library();
    if (word == "none"_L1 || word == unsetString || library.supplyRibbonSKUList().contains(word))
        return word == "none"_L1 ? unsetString : word;
    static const QRegularExpression id(u"^[0-9]+$"_s);
    if (!id.match(word).hasMatch())
        catalogue.requireRibbon(word);
    QString sku = library.getSkusFromRibbonIds({word, word}).constFirst();
    if (sku == unsetString)
        answer.addNote(u"no ribbon has the id %1: for the library it is missing."_s.arg(word));
    return sku;
}

QStringList ribbonWords(const Invocation &call)
{
    QStringList words;
    for (const QString &value : call.values(u"ribbons"_s))
        words += value.split(u',', Qt::SkipEmptyParts);
    words += call.arguments();
    if (words.size() > ribbonCount) {
        throw usageFailure(call.command(),
                           u"a printer holds two ribbons; \"%1\" is one too many"_s.arg(words[ribbonCount]));
    }
    return words;
}

QStringList ribbonSkus(Catalogue &catalogue, const Invocation &call, Answer &answer)
{
    QStringList skus;
    for (const QString &word : ribbonWords(call))
        skus.append(ribbonSku(catalogue, word, answer));
    while (skus.size() < ribbonCount)
        skus.append(unsetString);
    return skus;
}

Argument secondRibbonArgument()
{
    return {u"RIBBON"_s, u"The second ribbon, where --ribbons is followed by two"_s, Value::RibbonSku, Need::Any};
}

Option rollOption()
{
    return {u"roll"_s, u"The roll: a SKU, or 20 to 24 digits of its tag"_s, Value::RollSku, u"SKU|TAG"_s};
}

Option ribbonsOption()
{
    return {u"ribbons"_s,
            u"One or two ribbons, ribbon 1 first: SKUs or the ids in their tags; none for an empty place"_s,
            Value::RibbonSku, u"RIBBON"_s};
}

} // namespace zrsupply
