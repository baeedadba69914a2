#!/usr/bin/env bash
# Export, import and backup of lindebrug-cli against the tools a user would otherwise
# reach for, measured in the same run with hyperfine:
#   export of 100,000 customers  vs  sqlite3 writing the same ";" rows + iconv to 1252
#   import of 100,000 lines      vs  sqlite3's .import of the same file
#   backup of a 200 MB db.daa    vs  cp, and cp followed by a flush to disk as the
#                                    backup does before it gives the copy its name
# Usage: exchange_bench.sh LINDEBRUG_CLI SCHEMA_SQL WORK_FOLDER
set -euo pipefail

cli=$1
schema=$2
work=$3
rows=${EXCHANGE_BENCH_ROWS:-100000}
backup_mb=${EXCHANGE_BENCH_BACKUP_MB:-200}

rm -rf "$work"
mkdir -p "$work/program" "$work/out" "$work/big"
cp "$cli" "$work/program/lindebrug-cli"
cp "$cli" "$work/big/lindebrug-cli"

customers="WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < $rows)
INSERT INTO Klant (DebiteurNummer, Bedrijfsnaam, Fax, Email, Voorletters, Tussenvoegsel,
  Achternaam, Adres, Postcode, Plaats, Land, Telefoon, Zichtbaar, BTW, Dhr, Extra)
SELECT 10000 + i, 'Bakkerij Dé Korf ' || i, NULL, 'info' || i || '@korf.nl', 'J.', 'van',
  'Dijk', 'Kerkstraat ' || (i % 300), (1000 + i % 9000) || ' AB', 'Ede', 'Nederland',
  '0318-' || (100000 + i), i % 2, 0, 1, 'NL' || i || 'B01' FROM n;"

echo "== generating $rows customers"
sqlite3 "$work/empty.daa" < "$schema"
cp "$work/empty.daa" "$work/customers.daa"
sqlite3 "$work/customers.daa" "$customers"
cp "$work/customers.daa" "$work/program/db.daa"

# The import file: a customer export without its header and key column, in 1252.
sqlite3 -separator ';' -newline $'\r\n' "$work/customers.daa" \
  "SELECT DebiteurNummer, Bedrijfsnaam, Fax, Email, Voorletters, Tussenvoegsel, Achternaam,
          Adres, Postcode, Plaats, Land, Telefoon, 'True', 'False', 'True', Extra FROM Klant" |
  iconv -f UTF-8 -t WINDOWS-1252 > "$work/import.txt"
sqlite3 "$work/reference.daa" < "$schema"
sqlite3 "$work/reference.daa" "CREATE TABLE KlantImport (DebiteurNummer LONG,
  Bedrijfsnaam TEXT(100), Fax TEXT(50), Email TEXT(100), Voorletters TEXT(50),
  Tussenvoegsel TEXT(50), Achternaam TEXT(100), Adres TEXT(100), Postcode TEXT(50),
  Plaats TEXT(100), Land TEXT(100), Telefoon TEXT(50), Zichtbaar YESNO, BTW YESNO,
  Dhr YESNO, Extra TEXT(50))"
cp "$work/reference.daa" "$work/reference-empty.daa"

echo "== generating a ${backup_mb} MB database"
cp "$work/empty.daa" "$work/big/db.daa"
sqlite3 "$work/big/db.daa" "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n
  WHERE i < $((backup_mb * 1024 * 1024 / 600)))
  INSERT INTO Klant (Bedrijfsnaam, Adres) SELECT 'Firma ' || i, hex(randomblob(250)) FROM n"
ls -l "$work/big/db.daa"

cd "$work"
run() {
  local name=$1
  shift
  hyperfine --shell bash --warmup 1 --runs "${EXCHANGE_BENCH_RUNS:-5}" --export-csv "$name.csv" "$@"
  # Columns end in mean, stddev, median, user, system, min, max; row 1 is ours.
  awk -F, -v name="$name" 'NR == 2 { ours = $(NF - 6) }
    NR > 2 { printf "%s: lindebrug %.3f s, reference %d %.3f s, ratio %.2f\n",
             name, ours, NR - 2, $(NF - 6), ours / $(NF - 6) }' "$name.csv"
}

run export \
  --prepare "rm -f out/klant.csv out/reference.csv" \
  "program/lindebrug-cli export klant out" \
  "sqlite3 -header -separator ';' -newline \$'\\r\\n' program/db.daa 'SELECT * FROM Klant' | iconv -f UTF-8 -t WINDOWS-1252 > out/reference.csv"

run import \
  --prepare "cp empty.daa program/db.daa; cp reference-empty.daa reference.daa" \
  "program/lindebrug-cli import Klant import.txt" \
  "sqlite3 reference.daa '.separator ;' '.import import.txt KlantImport'"

run backup \
  --prepare "rm -f out/*.bu1 out/reference.bu1; sync" \
  "big/lindebrug-cli backup out" \
  "cp big/db.daa out/reference.bu1" \
  "cp big/db.daa out/reference.bu1 && sync out/reference.bu1"
