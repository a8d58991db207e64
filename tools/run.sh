#!/bin/sh
# Makes a practice folder with the demonstration clients if there is none and opens the chooser on it. Without a display
# the same run goes headless: a client is handed over, and the summary is printed.
set -eu
programs=$1
practice=$2

"$programs/pgbp-suite" --program-folder "$practice" ensure
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    exec "$programs/pgbp-suite" --program-folder "$practice"
fi
code=$("$programs/pgbp-suite" --program-folder "$practice" list firm 2023-24 | awk 'NR == 1 { print $1 }')
"$programs/pgbp-suite" --program-folder "$practice" handover "$code" GlLarge=1
echo "No display: the summary of $code, as the driver reads it."
printf 'show\ndump frmbusiness\nclick frmbusiness.CmdBack\n' | "$programs/pgbp-drive" --program-folder "$practice"
"$programs/pgbp-suite" --program-folder "$practice" show "$code"
