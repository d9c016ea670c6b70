#!/usr/bin/env bash
# The quillbox program's commands: binds lists the sample's binds, a script copied as code and
# pasted back comes back byte for byte for a language that keeps it, print writes the sample
# to a PDF file, and wrong arguments fail with a message that says what was wrong.
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

# expect STATUS PATTERN COMMAND...: the command exits with STATUS and its output matches PATTERN.
expect() {
  local status=$1 pattern=$2 out rc=0
  shift 2
  out=$("$quillbox" "$@" 2>&1) || rc=$?
  if [ "$rc" != "$status" ] || ! grep -Eq -- "$pattern" <<<"$out"; then
    echo "quillbox $*: exit $rc (expected $status), output:"; echo "$out"; exit 1
  fi
}
printf 'not a database\n' > "$work/text.sqlite"
expect 0 '^usage: quillbox edit' --help
expect 2 'unknown language "Cobol".*' code --lang Cobol "$work/script.sql"
expect 2 'did you mean "Java"' code --lang java "$work/script.sql"
expect 2 'the languages are: "Visual Basic".*"PHP"' uncode --lang java "$work/script.sql"
expect 1 "cannot use $work/missing.sqlite as the database: no such file" shot "$work/script.sql" -o "$work/x.png" --db "$work/missing.sqlite"
expect 1 "cannot use $work/text.sqlite as the database: not an SQLite database" shot "$work/script.sql" -o "$work/x.png" --db "$work/text.sqlite"
[ "$("$quillbox" --help 2>/dev/null | head -c 6)" = "usage:" ] || { echo "--help does not print to standard output"; exit 1; }
# A file error names the path once.
for command in "binds" "code --lang Java" "uncode --lang Java" "shot"; do
  out=$("$quillbox" $command "$work/missing.sql" -o "$work/x.png" 2>&1) && { echo "$command: a missing file was accepted"; exit 1; }
  [ "$(grep -o "missing.sql" <<<"$out" | wc -l)" = 1 ] || { echo "$command: $out"; exit 1; }
done
# print writes a PDF whose pages carry the script.
"$quillbox" print "$source/samples/sample.sql" -o "$work/sample.pdf" >/dev/null
head -c 5 "$work/sample.pdf" | grep -q '%PDF-' || { echo "print wrote no PDF"; exit 1; }
grep -aq '/Type /Page\b' "$work/sample.pdf" || { echo "the PDF has no page"; exit 1; }
if "$quillbox" print "$work/missing.sql" -o "$work/missing.pdf" >/dev/null 2>&1 || [ -e "$work/missing.pdf" ]; then
  echo "printing a missing file did not fail cleanly"; exit 1
fi
echo "batch commands: ok"
