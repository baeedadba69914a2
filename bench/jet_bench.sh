#!/usr/bin/env bash
# Bringing an old Access db.daa over: lindebrug-cli omzetten against the naive route a user
# might take instead, measured in the same run with hyperfine:
#   lindebrug-cli --yes omzetten OUD.daa      (read with libmdb, written, checked, renamed)
#   mdb-schema + mdb-export -I sqlite | sqlite3, all six tables in one transaction
#   (money goes through text and a REAL column there: it loses its exactness)
# Usage: jet_bench.sh LINDEBRUG_CLI JET_FILE WORK_FOLDER
set -euo pipefail

cli=$1
old=$2
work=$3

rm -rf "$work"
mkdir -p "$work/program"
cp "$cli" "$work/program/lindebrug-cli"
cp "$old" "$work/OUD.daa"
chmod u+w "$work/OUD.daa"
cd "$work"

cat > naive.sh <<'SCRIPT'
{
  mdb-schema OUD.daa sqlite
  echo 'BEGIN;'
  for table in BTW Artikel Klant Factuur ArtikelPerFactuur Instellingen; do
    mdb-export -I sqlite -T '%Y-%m-%d %H:%M:%S' OUD.daa "$table"
  done
  echo 'COMMIT;'
} | sqlite3 naive.daa
SCRIPT

hyperfine --shell bash --warmup 1 --runs "${JET_BENCH_RUNS:-5}" --export-csv jet.csv \
  --prepare "rm -f program/db.daa program/db.daa.vorige naive.daa" \
  "program/lindebrug-cli --yes omzetten OUD.daa" "bash naive.sh"
awk -F, 'NR == 2 { ours = $(NF - 6) }
  NR == 3 { printf "omzetten: lindebrug %.3f s, mdb-export | sqlite3 %.3f s, ratio %.2f\n",
            ours, $(NF - 6), ours / $(NF - 6) }' jet.csv
# One more of each, to compare what they hold (hyperfine's --prepare removed the last).
rm -f program/db.daa program/db.daa.vorige naive.daa
program/lindebrug-cli --yes omzetten OUD.daa >/dev/null
bash naive.sh
echo "rows: $(sqlite3 program/db.daa 'SELECT COUNT(*) FROM ArtikelPerFactuur') lines;" \
  "sum of line totals: lindebrug $(sqlite3 program/db.daa 'SELECT SUM(TotaalPrijs) / 10000.0 FROM ArtikelPerFactuur')," \
  "naive $(sqlite3 naive.daa 'SELECT SUM(TotaalPrijs) FROM ArtikelPerFactuur')"
