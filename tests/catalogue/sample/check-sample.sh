#!/bin/sh
# SPDX-License-Identifier: LGPL-2.1-or-later
# check-sample.sh SOURCES
#
# Checks the sample catalogue and the script that builds it, with nothing but the sqlite3 shell. Every check prints a
# line, a failed one starts with FAIL and shows the offending rows. Exit status: 0 all hold, 1 some fail, 2 usage.

set -u
if [ $# -ne 1 ] || [ ! -d "$1" ]; then
    printf 'usage: check-sample.sh SOURCES\n' >&2
    exit 2
fi

here=$(CDPATH='' cd -- "$(dirname -- "$0")" && pwd)
sources=$(CDPATH='' cd -- "$1" && pwd)
schema=$(CDPATH='' cd -- "$here/../../../schema" && pwd)
build=$schema/build-catalogue
sqlite=${SQLITE3:-sqlite3}
work=$(mktemp -d) || exit 1
trap 'rm -rf "$work"' EXIT
trap 'exit 1' HUP INT TERM
catalogue=$work/first/catalogue.sqlite
failures=0

sql() {
    "$sqlite" -batch -bail -init /dev/null -readonly "$catalogue" "$@"
}

# verdict NAME COMPLAINT: no complaint, no failure.
verdict() {
    if [ -z "$2" ]; then
        printf 'ok    %s\n' "$1"
    else
        printf 'FAIL  %s\n%s\n' "$1" "$2" | sed '2,$s/^/      /'
        failures=$((failures + 1))
    fi
}

# none NAME SQL: the SQL lists what offends.
none() {
    verdict "$1" "$(sql "$2" 2>&1)"
}

# some NAME SQL: the SQL lists what has to be there at least once.
some() {
    if found=$(sql "$2" 2>&1) && [ -n "$found" ]; then
        verdict "$1" ""
    else
        verdict "$1" "nothing found${found:+: $found}"
    fi
}

# ---- The build

mkdir "$work/first" "$work/second" "$work/home"
if ! "$build" "$sources" "$catalogue"; then
    printf 'FAIL  the sample builds\n'
    exit 1
fi
verdict "the sample builds" ""

cp -r "$sources" "$work/copy of it's sources"
find "$work/copy of it's sources" -type f -exec touch -t 200102030405 {} +
printf '.headers on\nPRAGMA page_size = 8192;\n' >"$work/home/.sqliterc"
second=$work/second/another.name
complaint=$(cd "$work/second" && HOME=$work/home LC_ALL=C.UTF-8 LANG=C.UTF-8 TZ=Pacific/Auckland \
    "$build" "../copy of it's sources" another.name 2>&1 && cmp "$catalogue" "$second" 2>&1)
verdict "the same sources give the same bytes from another folder, time zone, locale and home" "$complaint"

complaint=$(find "$work/first" "$work/second" -type f ! -name catalogue.sqlite ! -name another.name)
verdict "nothing but the catalogue is left beside it" "$complaint"
none "the file is sound" "SELECT * FROM pragma_integrity_check WHERE integrity_check <> 'ok'"
none "the file says what it is" "
    SELECT 'page size', page_size FROM pragma_page_size WHERE page_size <> 4096 UNION ALL
    SELECT 'encoding', encoding FROM pragma_encoding WHERE encoding <> 'UTF-8' UNION ALL
    SELECT 'journal', journal_mode FROM pragma_journal_mode WHERE journal_mode <> 'delete' UNION ALL
    SELECT 'application', application_id FROM pragma_application_id WHERE application_id <> 0x5A525344 UNION ALL
    SELECT 'schema version', user_version FROM pragma_user_version
    WHERE CAST(user_version AS TEXT) IS NOT (SELECT value FROM meta WHERE key = 'schema_version')"
some "the file tells its dataset version" "SELECT 1 FROM meta WHERE key = 'dataset_version' AND value <> ''"

# The sources are what the file holds, row for row: sorted by key, numbers written as SQLite writes them. Quotes are
# left out on both sides, since SQLite quotes more fields than need it.
for table in $(sql "SELECT name FROM sqlite_schema WHERE type = 'table' AND name NOT LIKE 'sqlite%'"); do
    case $table in
    background) columns="id, (SELECT 'svg')" ;;
    *) columns='*' ;;
    esac
    key=$(sql "SELECT group_concat(name) FROM (SELECT name FROM pragma_table_info('$table') WHERE pk > 0 ORDER BY pk)")
    sql -csv -header "SELECT $columns FROM $table ORDER BY $key" | tr -d '"\r' |
        sed '/^schema_version,/d' >"$work/rows"
    if [ "$table" = background ]; then
        cut -d , -f 1 "$work/rows" >"$work/ids" && mv "$work/ids" "$work/rows"
        cut -d , -f 1 "$sources/$table.csv" >"$work/lines"
    else
        tr -d '"\r' <"$sources/$table.csv" >"$work/lines"
    fi
    verdict "$table.csv is what the file holds, sorted by key" "$(diff "$work/lines" "$work/rows" 2>&1)"
done

# ---- What the sample covers

some "60 rolls or more" "SELECT 1 WHERE (SELECT count(*) FROM roll) >= 60"
some "24 ribbons or more" "SELECT 1 WHERE (SELECT count(*) FROM ribbon) >= 24"
some "six languages or more" "SELECT 1 WHERE (SELECT count(*) FROM meta WHERE key GLOB 'language.*') >= 6"
none "every excluded machine family has a roll" "
    SELECT column1 FROM (VALUES ('HM1'), ('HM4'), ('HM6'), ('HMQ'), ('WJA'))
    WHERE column1 NOT IN (SELECT machineId FROM roll JOIN materialwidth ON materialwidth.id = materialWidthId)"
some "three SKUs share an id" "SELECT supplyId FROM roll GROUP BY 1 HAVING count(*) >= 3"
some "SKUs of equal length share an id" "
    SELECT supplyId FROM roll GROUP BY supplyId, length(itemNum) HAVING count(*) >= 2"
some "an excluded SKU shares an id with a longer one that is offered" "
    SELECT supplyId FROM roll JOIN materialwidth ON materialwidth.id = materialWidthId GROUP BY supplyId
    HAVING min(CASE WHEN machineId IN ('HM1', 'HM4', 'HM6', 'HMQ', 'WJA') THEN length(itemNum) END)
         < min(CASE WHEN machineId NOT IN ('HM1', 'HM4', 'HM6', 'HMQ', 'WJA') THEN length(itemNum) END)"
some "striped rolls" "SELECT 1 FROM continuousstripe"
none "rolls of every layout and printer rule" "
    WITH wanted(name, firstFormat, lastFormat, firstMaterial, lastMaterial, leastGap, mostGap) AS (VALUES
        ('format 3, gap up to 0.13', 3, 3, 1, 255, 0.0, 0.13),
        ('format 3, gap over 0.13', 3, 3, 1, 255, 0.131, 1.0),
        ('format 39, material 1, narrow gap', 39, 39, 1, 1, 0.0, 0.149),
        ('format 39, material 1, wide gap', 39, 39, 1, 1, 0.15, 1.0),
        ('format 39, another material', 39, 39, 2, 255, 0.0, 1.0), ('format 40', 40, 40, 1, 255, 0.0, 1.0),
        ('format 41 to 54, material 18, narrow gap', 41, 54, 18, 18, 0.0, 0.149),
        ('format 41 to 54, material 18, wide gap', 41, 54, 18, 18, 0.15, 1.0),
        ('format 41 to 54, another material', 41, 54, 1, 17, 0.0, 1.0),
        ('format 55, material 18', 55, 55, 18, 18, 0.0, 1.0))
    SELECT name FROM wanted WHERE NOT EXISTS (
        SELECT 1 FROM noncontinuous JOIN roll USING (itemNum) JOIN materialwidth ON materialwidth.id = materialWidthId
        WHERE formatId BETWEEN firstFormat AND lastFormat AND materialId BETWEEN firstMaterial AND lastMaterial
          AND separatorWidth BETWEEN leastGap AND mostGap)"
none "rolls narrower than 4 inches, of 4 and wider" "
    SELECT column1 FROM (VALUES ('narrower'), ('4'), ('wider')) WHERE column1 NOT IN (
        SELECT CASE WHEN width < 4.0 THEN 'narrower' WHEN width = 4.0 THEN '4' ELSE 'wider' END
        FROM roll JOIN materialwidth ON materialwidth.id = materialWidthId)"
none "ribbons narrower than 4.5 inches, of 4.5 and of 6" "
    SELECT column1 FROM (VALUES ('narrower'), ('4.5'), ('6.0')) WHERE column1 NOT IN (
        SELECT CASE WHEN width < 4.5 THEN 'narrower' ELSE CAST(width AS TEXT) END FROM ribbon)"
none "ribbons of 1, 2 and 3 panels" "
    SELECT column1 FROM (VALUES (1), (2), (3)) WHERE column1 NOT IN (SELECT panels FROM ribbon)"
none "the special and the clear-tail ribbons" "
    SELECT column1 FROM (VALUES ('R4417TX'), ('HVWA-ZEROSPOL'), ('R530947'), ('RW530947'))
    WHERE column1 NOT IN (SELECT sku FROM ribbon)"
some "four pictures or more" "SELECT 1 WHERE (SELECT count(*) FROM background) >= 4"
none "every picture is an SVG document" "
    SELECT id, typeof(svg) FROM background WHERE typeof(svg) <> 'blob'
        OR CAST(svg AS TEXT) NOT LIKE '<svg xmlns=\"http://www.w3.org/2000/svg\"%</svg>' || char(10)"

# ---- What must hold between the tables

joins='roll.materialWidthId=materialwidth.id roll.colorId=color.id roll.supplysensorId=supplysensor.id
    roll.backgroundId=background.id continuousstripe.itemNum=roll.itemNum continuousstripe.secColorId=color.secId
    noncontinuous.itemNum=roll.itemNum noncontinuous.formatId=format.id ribbon_panel.ribbonId=ribbon.id
    ribbon_panel.colorId=ribbon_color.id ribbon_heat.ribbonId=ribbon.id
    roll.colorId=colorTS.colorId materialwidth.materialId=materialTS.materialId color.id=colorTS.colorId
    ribbon_heat.materialId=materialTS.materialId format.id=formatTS.formatId
    ribbon_panel.typeId=ribbon_typeTS.ribbon_typeId ribbon_color.id=ribbon_colorTS.ribbon_colorId
    colorTS.colorId=color.id formatTS.formatId=format.id ribbon_colorTS.ribbon_colorId=ribbon_color.id'
complaint=$(for join in $joins; do
    from=${join%=*}
    to=${join#*=}
    sql "SELECT DISTINCT '$from ' || $from || ' is no $to' FROM ${from%.*}
         WHERE $from IS NOT NULL AND $from NOT IN (SELECT $to FROM ${to%.*} WHERE $to IS NOT NULL)" 2>&1
done)
verdict "every join finds its row" "$complaint"

complaint=$(for names in colorTS:colorId materialTS:materialId formatTS:formatId ribbon_typeTS:ribbon_typeId \
    ribbon_colorTS:ribbon_colorId; do
    table=${names%:*}
    id=${names#*:}
    sql "SELECT '$table ' || entity.$id || ' has no name in language ' || substr(key, 10)
         FROM (SELECT DISTINCT $id FROM $table) AS entity, meta WHERE key GLOB 'language.*' AND NOT EXISTS (
            SELECT 1 FROM $table AS named WHERE named.$id = entity.$id AND named.name <> ''
               AND languageId = CAST(substr(key, 10) AS INTEGER))" 2>&1
done)
verdict "every name is there in every language" "$complaint"

none "a roll is die-cut by its label length and by its own row, or by neither" "
    SELECT itemNum, nonContinuousLength, formatId FROM roll JOIN materialwidth ON materialwidth.id = materialWidthId
    LEFT JOIN noncontinuous USING (itemNum) WHERE (nonContinuousLength > 0.0) <> (formatId IS NOT NULL)"
none "a ribbon has its panels, numbered from 1" "
    SELECT sku, panels, count(panel), max(panel) FROM ribbon LEFT JOIN ribbon_panel ON ribbonId = id GROUP BY id
    HAVING count(panel) <> panels OR coalesce(max(panel), 0) <> panels OR coalesce(min(panel), 1) <> 1"
none "the special ribbons, and no others, have neither panels nor heats" "
    SELECT sku FROM ribbon WHERE (sku IN ('R4417TX', 'HVWA-ZEROSPOL')) IS NOT (panels = 0
        AND id NOT IN (SELECT ribbonId FROM ribbon_panel) AND id NOT IN (SELECT ribbonId FROM ribbon_heat))"
none "a ribbon that prints on a material does so with every panel" "
    SELECT sku, materialId, count(*), panels FROM ribbon JOIN ribbon_heat ON ribbonId = id GROUP BY id, materialId
    HAVING count(*) <> panels OR min(heat) <= 0 OR min(max_speed) <= 0 OR min(tension) <= 0"
pairs="SELECT itemNum, sku, heat IS NULL AS badHeat, ribbon.width < 4.5 AND materialwidth.width > 4.0 AS badWidth,
            ribbon.width >= materialwidth.width AS covers
    FROM roll JOIN materialwidth ON materialwidth.id = materialWidthId JOIN ribbon
    LEFT JOIN ribbon_heat ON ribbonId = ribbon.id AND panel = 1 AND ribbon_heat.materialId = materialwidth.materialId
    WHERE panels > 0"
none "every roll has a ribbon that prints on it and covers it" "
    SELECT itemNum FROM ($pairs) GROUP BY itemNum HAVING max(NOT badHeat AND NOT badWidth AND covers) = 0"
some "a pair that is bad by heat alone" "SELECT 1 FROM ($pairs) WHERE badHeat AND NOT badWidth LIMIT 1"
some "a pair that is bad by width alone" "SELECT 1 FROM ($pairs) WHERE badWidth AND NOT badHeat LIMIT 1"
verdict "the bits of every supply id say what the rows say" "$(sql <"$here/tag-bits.sql" 2>&1)"

# README.md names tags with the SKU that the library finds for them. Tags of revision 2 and later are not looked up.
# shellcheck disable=SC2016 # the backticks are those of the README
complaint=$(sed -n 's/^| `\([0-9A-F]\{24\}\)` | `\([^`]*\)` |.*/\1 \2/p' "$schema/README.md" |
    while read -r tag sku; do
        case $tag in
        ?????????????????[01]*) found=$(sql "
            SELECT coalesce((SELECT itemNum FROM roll JOIN materialwidth ON materialwidth.id = materialWidthId
                WHERE supplyId = substr('$tag', 1, 20) AND machineId NOT IN ('HM1', 'HM4', 'HM6', 'HMQ', 'WJA')
                ORDER BY length(itemNum), itemNum LIMIT 1), 'UnknownSupply')") ;;
        *) found=unchanged ;;
        esac
        [ "$found" = "$sku" ] || printf '%s gives %s, README.md says %s\n' "$tag" "$found" "$sku"
        printf '%s\n' "$tag" >>"$work/tags"
    done)
[ -s "$work/tags" ] || complaint="README.md lists no tag"
verdict "the tags in the README give the SKUs that it says" "$complaint"

# ---- How the library's questions are answered

kind=keyed
while IFS= read -r statement; do
    case $statement in
    '-- Lists'*) kind=list ;;
    --*) ;;
    *)
        printf '%s\n' "$kind" >>"$work/kinds"
        plan=$(sql "EXPLAIN QUERY PLAN $statement" 2>&1)
        case $kind-$plan in
        keyed-*SCAN* | keyed-*TEMP* | *rror*) printf '%s\n%s\n' "$statement" "$plan" ;;
        esac
        case $statement in
        *roll.supplyId*)
            case $plan in
            *'COVERING INDEX roll_supplyId'*) ;;
            *) printf '%s\n%s\n' "$statement" "$plan" ;;
            esac
            ;;
        esac
        [ -n "$(sql "$statement" 2>&1)" ] || printf 'no row from: %s\n' "$statement"
        ;;
    esac
done <"$here/statements.sql" >"$work/plans"
verdict "keyed statements search and do not sort, all give a row" "$(cat "$work/plans")"
[ "$(grep -c keyed "$work/kinds")/$(grep -c list "$work/kinds")" = 39/4 ] && complaint="" ||
    complaint="$(sort "$work/kinds" | uniq -c)"
verdict "39 keyed statements and 4 lists were checked" "$complaint"

# ---- Sources that must be refused

# refused NAME TEXT COMMAND...: the command, run in a copy of the sources, breaks them. The build has to fail with a
# message that holds TEXT, and has to leave the older output alone and nothing else.
refused() {
    name=$1 text=$2
    shift 2
    rm -rf "$work/broken" "$work/out"
    cp -r "$sources" "$work/broken"
    mkdir "$work/out"
    printf 'older\n' >"$work/out/catalogue.sqlite"
    complaint=""
    (cd "$work/broken" && "$@") || complaint="the sources could not be broken"
    message=$("$build" "$work/broken" "$work/out/catalogue.sqlite" 2>&1) && complaint="the build succeeds"
    case $message in
    *"$text"*) ;;
    *) complaint="the message does not hold '$text': $message" ;;
    esac
    [ "$(cat "$work/out/catalogue.sqlite")" = older ] || complaint="the older output is gone"
    [ "$(ls -A "$work/out")" = catalogue.sqlite ] || complaint="files are left: $(ls -A "$work/out")"
    verdict "refused: $name" "$complaint"
}

edit() {
    cp "$2" "$work/unbroken" && sed "$1" "$work/unbroken" >"$2" && ! cmp -s "$work/unbroken" "$2"
}

refused "a table without its file" "color.csv is missing" rm color.csv
refused "a picture without its file" "no readable file svg/hang-tag.svg" rm svg/hang-tag.svg
refused "columns in another order" "ribbon.csv, line 1" edit '1s/id,sku/sku,id/' ribbon.csv
refused "a row with too few fields" "format.csv" edit '2s/,.*//' format.csv
refused "a row with too many fields" "format.csv" edit '2s/$/,more/' format.csv
refused "a word for a number" "materialwidth.width" edit '2s/1\.0,/wide,/' materialwidth.csv
refused "a fraction for a whole number" "roll.nUpCount" edit '2s/,0,1,/,0,1.5,/' roll.csv
refused "a roll twice" "roll.itemNum" edit '2p' roll.csv
refused "a ribbon id twice" "ribbon.id" edit '2s/^[0-9]*/1/' ribbon.csv
refused "a roll without a SKU" "roll.itemNum" edit '2s/^[^,]*//' roll.csv
refused "a second schema version" "meta.key" sh -c 'echo schema_version,9 >>meta.csv'
refused "a field whose quote is left open" "colorTS.csv" edit '2s/White/"White/' colorTS.csv

# status NAME STATUS ARGUMENT...: how the build ends when it is called like this.
status() {
    name=$1 expected=$2
    shift 2
    "$build" "$@" >"$work/said" 2>&1
    found=$?
    complaint=""
    [ $found -eq "$expected" ] || complaint="exit status $found, expected $expected"
    [ -s "$work/said" ] || complaint="nothing is said"
    verdict "$name" "$complaint"
}

status "help" 0 --help
status "refused: one argument" 2 "$sources"
status "refused: sources that are not there" 1 "$work/nowhere" "$work/out/new"
status "refused: an output folder that is not there" 1 "$sources" "$work/nowhere/new"
status "refused: an output that is a folder" 1 "$sources" "$work/out"
message=$(SQLITE3=$work/no-such-shell "$build" "$sources" "$work/out/new" 2>&1) && message="the build succeeds"
case $message in
*"not installed"*) complaint="" ;;
*) complaint=$message ;;
esac
verdict "refused: no sqlite3 shell" "$complaint"
: >"$work/out/new-journal"
status "refused: a journal that would be applied to the output" 1 "$sources" "$work/out/new"

if [ $failures -gt 0 ]; then
    printf '%d checks fail\n' "$failures"
    exit 1
fi
printf 'all checks hold\n'
