#!/usr/bin/env bash
# Builds the module and koapp, evaluates the example experiment and shows the profile beside the
# rates that the example was made with. Leaves out/profile.csv, out/curves.csv and out/report.txt.
set -euo pipefail
cd "$(dirname "$0")"

tools/need-packages g++ cmake ninja-build python3 ccache
cmake --preset release -DNUV64_TESTS=OFF -B build/demo >/dev/null
cmake --build build/demo --target koapp | tail -n 1
koapp=build/demo/bin/koapp

rm -rf out && mkdir out
echo
echo "== The example (made by examples/make_example.py)"
"$koapp" info examples/ffc_example.sdf >out/info.txt
head -n 24 out/info.txt
echo "   ... (all of it in out/info.txt)"
echo
echo "== Reports of the steps of examples/profile.task"
"$koapp" evaluate examples/ffc_example.sdf --script examples/profile.task \
    --report out/report.txt --csv out/curves.csv --profile-csv out/profile.csv
echo
echo "== The profile beside the known rates"
python3 examples/compare.py out/profile.csv
echo
echo "Written: out/profile.csv, out/curves.csv, out/report.txt"
