#!/bin/sh
# Makes the pictures of the documentation anew, from the demonstration clients, without a display.
set -eu
programs=$(realpath "$1")
pictures=$(realpath "$2")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
practice=practice
suite="$programs/pgbp-suite --program-folder $practice"
export QT_QPA_PLATFORM=offscreen

$suite new "$practice" >/dev/null

# shot NAME CODE [COLUMN=VALUE ...]: the window after the commands on standard input
shot() {
    name=$1
    shift
    cat >script
    $suite handover "$@" >/dev/null
    "$programs/pgbp-shot" --program-folder "$practice" "$pictures/$name.png" script
}

shot summary-individual 1001r2023-24 </dev/null
shot summary-firm 1003r2023-24 </dev/null
shot summary-company 1004r2023-24 </dev/null
shot summary-trust 1005r2022-23 </dev/null
shot summary-comparative 1003r2023-24 GlLarge=1 </dev/null
shot summary-locked 1003r2023-24 GLlock=1 </dev/null
PGBP_THEME=dark shot summary-dark 1003r2023-24 GlLarge=1 </dev/null
shot list-of-lines 1003r2023-24 <<END
click frmbusiness.cmd1
END
shot reminder 1001r2023-24 <<END
keys frmbusiness {ALT+R}
dblclick frmReminder.LV 0
set frmReminder.txthead Form 16A of the firm
keys frmReminder.txtmmo Ask for it by July; the firm deducts tax from the interest.
click frmReminder.cmdsave
dblclick frmReminder.LV 0
set frmReminder.txthead Shares: contract notes
keys frmReminder.txtmmo March is missing.
click frmReminder.cmdsave
END
shot reminder-note 1001r2023-24 <<END
keys frmbusiness {ALT+R}
select frmReminder.LV "Form 16A of the firm"
END
shot help 1007r2023-24 <<END
click frmbusiness.ImgHelp
END
$suite --picture "$pictures/chooser.png"
