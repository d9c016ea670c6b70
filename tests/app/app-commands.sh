#!/usr/bin/env bash
# The quillbox program's batch commands: binds lists the sample's binds, a script copied as
# code and pasted back comes back byte for byte for a language that keeps it, and print
# writes the sample to a PDF file.
set -euo pipefail
quillbox=$1 source=$2 work=$3
rm -rf "$work" && mkdir -p "$work"

binds=$("$quillbox" binds "$source/samples/sample.sql")
grep -q ':since' <<<"$binds" && grep -q ':order_id' <<<"$binds" || { echo "binds: $binds"; exit 1; }

printf "select a \r\n  from t \r\n where b = 'x' \r\n" > "$work/script.sql"
"$quillbox" code --lang "C/C++" "$work/script.sql" > "$work/script.cpp"
head -c 20 "$work/script.cpp" | grep -q '^pszSQL = "select a' || { echo "code:"; cat "$work/script.cpp"; exit 1; }
"$quillbox" uncode --lang "C/C++" "$work/script.cpp" > "$work/back.sql"
cmp "$work/script.sql" "$work/back.sql" || { echo "the round trip changed the script"; od -c "$work/back.sql"; exit 1; }

if "$quillbox" code --lang Cobol "$work/script.sql" >/dev/null 2>&1; then
  echo "an unknown language was accepted"; exit 1
fi
# print writes a PDF whose pages carry the script.
"$quillbox" print "$source/samples/sample.sql" -o "$work/sample.pdf" >/dev/null
head -c 5 "$work/sample.pdf" | grep -q '%PDF-' || { echo "print wrote no PDF"; exit 1; }
grep -aq '/Type /Page\b' "$work/sample.pdf" || { echo "the PDF has no page"; exit 1; }
if "$quillbox" print "$work/missing.sql" -o "$work/missing.pdf" >/dev/null 2>&1 || [ -e "$work/missing.pdf" ]; then
  echo "printing a missing file did not fail cleanly"; exit 1
fi
echo "batch commands: ok"
