#!/bin/sh
# clang-tidy over the sources that differ from the last landed state ("changed"), or over all of them ("all"); any finding
# fails. A header is checked through a source that includes it.
set -eu
build=$1
jobs=$2
scope=$3

# What differs from the place where this branch left the one that it follows. In a fresh clone nothing does: there it is
# what the last commit brought, and without one before it nothing.
changed() {
    base=$(git merge-base HEAD '@{upstream}' 2>/dev/null || git merge-base HEAD origin/HEAD 2>/dev/null || echo HEAD)
    if git diff --quiet "$base"; then
        base=$(git rev-parse --quiet --verify HEAD~ || echo HEAD)
    fi
    git diff --name-only --diff-filter=d "$base" -- src
    git ls-files --others --exclude-standard -- src
}

source_of() {
    case $1 in
    *.cpp) echo "$1" ;;
    *.h)
        if [ -f "${1%.h}.cpp" ]; then
            echo "${1%.h}.cpp"
        else
            git grep -l --fixed-strings "\"${1#src/}\"" -- 'src/*.cpp' | head -n 1
        fi
        ;;
    esac
}

if [ "$scope" = all ]; then
    sources=$(git ls-files 'src/*.cpp')
else
    sources=$(changed | while read -r file; do source_of "$file"; done | sort -u)
fi
[ -n "$sources" ] || { echo "clang-tidy: no source differs."; exit 0; }
echo "clang-tidy: $(echo "$sources" | wc -l) sources"
echo "$sources" | xargs -P "$jobs" -n 1 clang-tidy -p "$build" --quiet --extra-arg=-Wno-unknown-warning-option \
    --warnings-as-errors='*'
