#!/bin/sh
# Makes the pictures of the reports anew: the first page of the newest year of each demonstration client. Usage:
# report-pictures.sh PROGRAMS FOLDER
set -eu
programs=$(realpath "$1")
pictures=$(realpath "$2")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
suite="$programs/pgbp-suite --program-folder $folder/practice"

"$programs/pgbp-suite" new "$folder/practice" >/dev/null
newest=$($suite list | awk '{ split($1, code, "r"); last[code[1]] = $1 } END { for (client in last) print last[client] }' | sort)
# shellcheck disable=SC2086
$suite report $newest --pdf "$folder/reports" |
    while read -r _ code file; do
        pdftoppm -r 60 -f 1 -l 1 -singlefile -gray -png "$folder/reports/$file" "$pictures/${code%%r*}"
    done
