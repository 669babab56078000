#!/bin/sh
# SPDX-License-Identifier: LGPL-2.1-or-later
# Starts the service on a bus of its own and talks to it as any other process would.
#
#   run.sh FOLDER CATALOGUE
set -eu
if [ "${ZR_ON_PRIVATE_BUS:-}" != yes ]; then
    ZR_ON_PRIVATE_BUS=yes exec dbus-run-session -- "$0" "$@"
fi
catalogue=$2
name=example.printer.supplies
interface=$name.ZrSupplyDatabase

./consumer "$catalogue" &
service=$!
gdbus monitor --session --dest $name --object-path /supplies >heard.txt 2>&1 &
monitor=$!
gdbus monitor --session --dest $name --object-path /named >named.txt 2>&1 &
named=$!
trap 'kill $service $monitor $named 2>/dev/null || true' EXIT

# Waits until a file (heard.txt) has a line like this; signals travel on their own.
await() {
    tries=0
    until grep -q "$1" "${2:-heard.txt}"; do
        tries=$((tries + 1))
        [ $tries -lt 600 ] || { echo "nothing like '$1' came over the bus:" >&2; cat "${2:-heard.txt}" >&2; exit 1; }
        sleep 0.05
    done
}
call() {
    method=$1
    shift
    gdbus call --session --dest $name --object-path /supplies --method "$interface.$method" -- "$@"
}

gdbus wait --session --timeout 60 $name
await 'is owned by'
await 'is owned by' named.txt
call supplyWidth 00144463
call supplyMaterialName 00144463
call supplyRibbonHeats RW530901 00144463
call supplyColorHash | grep -o "'White': <[0-9]*>"
call setSupplyId 32100C0C8021004060000000
call setRibbonIds "['14', '16']"
call supplyRibbonSKUs
# Private slots are not for other processes.
if call checkRibbonTensions 2>/dev/null; then echo "a private slot is exported" >&2; exit 1; fi
await 'ribbon2RGBsChanged'
grep -o 'ZrSupplyDatabase\..*' heard.txt
# The interface that the host has named takes the calls; the signals have the interface that Qt names after the class.
gdbus call --session --dest $name --object-path /named --method example.printer.Supplies1.supplyWidth -- 00144463
await ribbon2RGBsChanged named.txt
grep -o '/named: .*ZrSupplyDatabase.supplyChangedSignal' named.txt

gdbus call --session --dest $name --object-path /application --method org.qtproject.Qt.QCoreApplication.quit >/dev/null
wait $service
