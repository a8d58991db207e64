#include "statements/accounts_link.h"

#include "entry/linked_client.h"
#include "services/ini_file.h"
#include "startup/settings.h"
#include "startup/shared_services.h"

#include <utility>

namespace pgbp {
namespace {

constexpr std::string_view kOlderLink = "OVVORNLink.exe";
constexpr std::string_view kNewerLink = "VORNLink.exe";

bool IsThere(const Run& run, std::string_view program) { return FileExists(run.host.programFolder / program) == 1; }

} // namespace

AccountsLink::AccountsLink(Screen& screen, Use use)
    : CmdOldOV(screen, "CmdOldOV", "Import from OV"), CmdImp(screen, "CmdImp", "&Import"),
      CmdLink(screen, "CmdLink", "&Link with OV"), run_(screen.run), use_(std::move(use))
{
    for (cmd* button : {&CmdOldOV, &CmdImp, &CmdLink})
        button->visible = false;
    CmdOldOV.onClick = [this] { ImportOlder(); };
    CmdImp.onClick = [this] { Import(kNewerLink); };
    CmdLink.onClick = [this] { MakeLink(); };
}

void AccountsLink::Examine()
{
    const bool hasServer = FindServer();
    CmdImp.visible = CmdLink.visible = hasServer && IsThere(run_, kNewerLink);
    if (!hasServer)
        FindBooks();
    CmdOldOV.visible = !OVCode.empty() && IsThere(run_, kOlderLink);
}

/// A server that does not answer is waited for once a run.
bool AccountsLink::FindServer() const
{
    if (!run_.company.Scalar("select newov from {setup} where code = '*****'").Flag())
        return false;
    if (!run_.OVServerAlive)
        CheckOVServer(run_);
    return *run_.OVServerAlive;
}

void AccountsLink::FindBooks()
{
    const auto client = FindLinkedClient(run_);
    if (!client)
        return;
    try {
        OVStatus = client->Status();
        OVPathText = client->folder;
        OVCode = client->code;
    } catch (const StoreError&) { // as where the books can not be read at all
    }
}

void AccountsLink::WriteSettings() const
{
    const clsIniFile file{run_.host.programFolder / "OVVorn.ini"};
    file.WriteValue("OV", "OVCODE", OVCode);
    file.WriteValue("OV", "RTYPE", "PL");
    file.WriteValue("OV", "OVPATH", OVPathText);
    file.WriteValue("OV", "OVSTATUS", OVStatus);
    file.WriteValue("VORN", "VORNOV", run_.GlDrive.string());
    file.WriteValue("VORN", "PATH", run_.GlServer);
}

/// A stored line whose figures the checks refuse goes to the sibling program as it is stored; false when there is none
/// that could take the figures.
bool AccountsLink::HandOver(const std::string& report) const
{
    use_.save();
    if (use_.line() == 0)
        return false;
    WriteOVHandover(run_, report, use_.line(), report == "PL" ? "" : OVCode);
    return true;
}

void AccountsLink::Import(std::string_view program) const
{
    if (!HandOver("PL"))
        return;
    if (RunSibling(run_, program) == 0)
        run_.Inform("Data Imported Successfully...");
    else
        run_.Inform(std::string(program) + " ended before it was done.\nThe statement shows what is stored.");
    use_.reload();
}

void AccountsLink::ImportOlder() const
{
    WriteSettings();
    Import(kOlderLink);
}

/// The sibling program only records the link.
void AccountsLink::MakeLink() const
{
    if (HandOver("OVLNK"))
        RunSibling(run_, kNewerLink);
}

} // namespace pgbp
