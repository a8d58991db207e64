#pragma once

#include "controls/buttons.h"
#include "startup/run.h"

#include <functional>
#include <string>

namespace pgbp {

/// The statement's figures out of the accounts product. A sibling program stores them as cells of the line of business:
/// the statement is saved first, that program is told the line and waited for, and the statement is read anew. The
/// older link is the product's data file, the newer one its database server.
class AccountsLink {
  public:
    /// What the link asks of the statement that is open.
    struct Use {
        std::function<void()> save;   ///< keeps the screen open; what its checks refuse stays unsaved
        std::function<double()> line; ///< number of the line of business as it is stored; 0 for none
        std::function<void()> reload; ///< shows what is stored
    };
    AccountsLink(Screen& screen, Use use);

    /// Shows the buttons for which there is a link and a sibling program. Nothing is told where there is none.
    void Examine();

    cmd CmdOldOV;
    cmd CmdImp;
    cmd CmdLink;

  private:
    bool FindServer() const;
    void FindBooks();
    void WriteSettings() const;
    bool HandOver(const std::string& report) const;
    void Import(std::string_view program) const;
    void ImportOlder() const;
    void MakeLink() const;

    Run& run_;
    const Use use_;
    std::string OVCode;     ///< key of the client's year there; empty: no books of the older link
    std::string OVPathText; ///< folder of the product
    std::string OVStatus;   ///< the client's status there
};

} // namespace pgbp
