#!/bin/sh
# Makes the pictures of the documentation anew, from the demonstration clients, without a display.
set -eu
sources=$(realpath "$(dirname "$0")/..")
programs=$(realpath "$1")
pictures=$(realpath "$2")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
practice=practice
lists=$sources/tests/trial_balance/samples
suite="$programs/pgbp-suite --program-folder $practice"
export QT_QPA_PLATFORM=offscreen

$suite new "$practice" >/dev/null

# shot NAME CODE [COLUMN=VALUE ...]: the window after the commands on standard input, the previous year beside it only where told
shot() {
    name=$1
    code=$2
    shift 2
    cat >script
    $suite handover "$code" GlLarge=0 "$@" >/dev/null
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
click frmbusiness.cmdlic
click frmbusiness.ImgHelp
END

# a line of business, and what lies over it
line="click frmbusiness.cmd1
dblclick frmbusiness.DBGrid1 2"
shot computation 1003r2023-24 <<END
$line
END
PGBP_THEME=dark shot computation-dark 1003r2023-24 <<END
$line
END
# what the law deems
shot presumptive-shop 1021r2025-26 <<END
click frmbusiness.cmd3
END
shot presumptive-profession 1022r2025-26 <<END
click frmbusiness.cmd9
END
shot presumptive-firm 1025r2016-17 <<END
click frmbusiness.cmd3
END
shot presumptive-businesses 1023r2024-25 <<END
click frmbusiness.cmd3
click frmbusinesscal.CmdMulti
END
shot presumptive-vehicles 1024r2018-19 <<END
click frmbusiness.cmd4
END
shot goods-carriages 1006r2023-24 <<END
click frmbusiness.cmd4
END
shot list-description 1003r2023-24 <<END
$line
click frmbusinesscal.cmd17
set frmbusinesscal.txtname AAAFS1111A
select frmbusinesscal.CboExType "Share from Partnership Firm"
set frmbusinesscal.txtamount 9000
click frmbusinesscal.CmdAdd
keys frmbusinesscal.txtname Agri
END
shot list-sections 1003r2023-24 <<END
$line
click frmbusinesscal.cmd23a
set frmbusinesscal.txtsec 43B
set frmbusinesscal.txtname1 Bonus of the year, not paid by the due date
set frmbusinesscal.txtamount1 39000
click frmbusinesscal.cmdadd1
END
shot other-adjustments 1003r2023-24 <<END
$line
click frmbusinesscal.cmdother
click frmbusinesscal.chk10abc1
END
shot allowances 1003r2023-24 <<END
$line
click frmbusinesscal.cmdother
click frmbusinesscal.cmd568
set frmbusinesscal.txtseca 35D
set frmbusinesscal.txtnamea Preliminary expenses
set frmbusinesscal.txtamt1 2
set frmbusinesscal.txtamt2 10000
set frmbusinesscal.txtamt3 12000
click frmbusinesscal.cmdadd33ab
END
shot research 1003r2023-24 <<END
$line
click frmbusinesscal.cmdother
click frmbusinesscal.Cmd35
set frmbusinesscal.Txt_1(0) 40000
set frmbusinesscal.Txt_2(0) 40000
set frmbusinesscal.Txt_1(5) 100000
set frmbusinesscal.Txt_2(5) 150000
END
claims="$line
click frmbusinesscal.cmdother
click frmbusinesscal.chk10abc1
click frmbusinesscal.cmd10abc
click frmbusinesscal.Cmd10A(5)
set Frm10ABC.TxtDescr Unit I
set Frm10ABC.TxtAmt 800000
click Frm10ABC.CmdAdd"
shot items-10abc 1003r2023-24 <<END
$claims
END
shot sections-10abc 1003r2023-24 <<END
$claims
click Frm10ABC.CmdSave
END
shot partners 1003r2023-24 <<END
$line
click frmbusinesscal.CmdPartner
END
shot partner-search 1003r2023-24 <<END
$line
click frmbusinesscal.CmdPartner
click frmbusinesscal.ImgHelp
keys frmbusinesscal.TxtSearch ka
END
shot partners-previous 1003r2023-24 <<END
$line
click frmbusinesscal.CmdPartner
click frmbusinesscal.CmdImp
END
shot partner-address 1003r2023-24 <<END
$line
click frmbusinesscal.CmdPartner
keys frmbusinesscal.TxtPart_PAN ABQPG4821K{ENTER}
END
PGBP_THEME=dark shot partners-dark 1003r2023-24 <<END
$line
click frmbusinesscal.CmdPartner
dblclick frmbusinesscal.DbPart 1
END
shot computation-short 1004r2023-24 <<END
click frmbusiness.cmd2
dblclick frmbusiness.DBGrid1 1
END

# the account of a line, and what lies over it
account="$line
click frmbusinesscal.CmdPNL"
shot annexure 1003r2023-24 <<END
$line
click frmbusinesscal.CmdDep
set frmfassetsNew.txtname Embroidery machine
select frmfassetsNew.CBOGRP "Machinery & Plant"
set frmfassetsNew.txtdeprate 15
set frmfassetsNew.txtpur2 400000
END
shot annexure-lines 1003r2023-24 <<END
$line
click frmbusinesscal.CmdDep
click frmfassetsNew.Command1
END
PGBP_THEME=dark shot annexure-empty-block 1003r2023-24 <<END
$line
click frmbusinesscal.CmdF
dblclick frmfassetsNew.DBGrid1 4
set frmfassetsNew.TxtSales1 90000
click frmfassetsNew.ChkEmpty
set frmfassetsNew.txtdate1 15-11-2022
END
shot annexure-2005 1008r2008-09 Glyear=2005-06 <<END
click frmbusiness.cmd1
dblclick frmbusiness.DBGrid1 1
click frmbusinesscal.CmdDep
END
shot statement 1003r2023-24 GlLarge=1 <<END
$account
click FrmbspnlPGBP.ChkPr
END
PGBP_THEME=dark shot statement-dark 1003r2023-24 <<END
$account
click FrmbspnlPGBP.ChkDet
END
QT_SCALE_FACTOR=1.5 shot statement-large 1003r2023-24 <<END
$account
END
shot statement-details 1003r2023-24 <<END
$account
enter FrmbspnlPGBP.MSH 6 2
click FrmbspnlPGBP.CmdMulEntry
set FrmbspnlPGBP.TxtDescr Cotton yarn
set FrmbspnlPGBP.TxtAmt 1490000
click FrmbspnlPGBP.CmdAdd
END
shot trial-balance 1003r2023-24 <<END
$account
file $lists/hosiery-2022-23.csv
click FrmbspnlPGBP.CmdTrial
enter FrmbspnlPGBP.MshTrial 77 5
keys FrmbspnlPGBP trav
END
shot statement-no-books 1001r2023-24 <<END
click frmbusiness.cmd1
click frmbusiness.CmdAdd
click frmbusinesscal.CmdPNL
click FrmbspnlPGBP.ChkBooks
click FrmbspnlPGBP.CmdBackFra
keys FrmbspnlPGBP 900000{ENTER}300000{ENTER}120000{ENTER}
END
shot bad-debts 1003r2023-24 <<END
$account
set FrmbspnlPGBP.TxtFind PAN is not available
keys FrmbspnlPGBP.TxtFind {ENTER}
click FrmbspnlPGBP.CmdMulEntry
set FrmQ47ii.Txt1 Mahesh Traders
set FrmQ47ii.Txt2 12/4
END

# a firm whose books are in the accounts product
shot computation-linked 1026r2023-24 <<END
click frmbusiness.cmd1
set frmbusinesscal.txtdescr1 Mehta Stationers
click frmbusinesscal.cmdovpnl
click frmbusinesscal.cmdovdep
END
shot linked-accounts 1026r2023-24 <<END
click frmbusiness.cmd1
click frmbusinesscal.cmdovadd
enter frmbusinesscal.DbGrid31 6 2
enter frmbusinesscal.DbGrid31 13 2
END

# what stands beside the lines
shot firms 1001r2022-23 <<END
click frmbusiness.cmd6
set FrmFirm.txtname Malwa Yarn Traders
set FrmFirm.TxtPan AAKFM2207P
set FrmFirm.TxtShare 10
set FrmFirm.TxtProfit 36500
set FrmFirm.TxtIntt 18000
END
shot firm-return 1001r2022-23 <<END
click frmbusiness.cmd6
click FrmFirm.cmdImport
dblclick FrmFirm.DBFirm 1
END
shot shares 1002r2023-24 <<END
click frmbusiness.cmd7
set frmbusiness.txtname Beach Cleaners
set frmbusiness.txtamount 1500
click frmbusiness.Command1
END
shot commission 1007r2022-23 <<END
click frmbusiness.cmdlic
END
shot gst 1001r2023-24 <<END
click frmbusiness.CmdGST
click FrmGST.Cmd26AS
END

# a minor's run wrote the head of income last
$suite handover 1007r2023-24 GLminor=1 >/dev/null
printf 'click frmbusiness.CmdBack\n' | "$programs/pgbp-drive" --program-folder "$practice" >/dev/null
$suite --picture "$pictures/chooser.png"
# the newest of a client's years is written too
$suite handover 1027r2024-25 >/dev/null
printf 'click frmbusiness.CmdBack\n' | "$programs/pgbp-drive" --program-folder "$practice" >/dev/null
$suite --search devika --picture "$pictures/client-years.png"
PGBP_THEME=dark $suite --search 1027r2021-22 --picture "$pictures/client-years-dark.png"
