#pragma once

#include "controls/buttons.h"
#include "controls/frame.h"
#include "controls/grid.h"
#include "controls/text_controls.h"
#include "startup/run.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace pgbp {

/// A client of the practice who may be a partner.
struct Person {
    std::string name{};
    std::string pan{};
    std::string address{};
    std::string city{};
    std::string state{};
    std::string pin{};
};

/// The client with this PAN, with his current address; nothing when there is none.
std::optional<Person> FindByPan(const Run& run, const std::string& pan);

/// `FraPart`: chooses a partner among the clients that can be one. The list is read when it is opened.
class PartnerSearch {
  public:
    explicit PartnerSearch(Screen& form);
    void Open();

    std::function<void(const Person&)> chosen;

    Frame FraPart;
    Label lblsearch;
    txt TxtSearch;
    Grid MSH;
    Label lblhint;
    cmd CmdBackPart;

  private:
    void Search();
    void Choose(int row);

    Run& run_;
    Form& form_;
    std::vector<Person> persons_;
};

/// `FraDEt`: shows whom a PAN belongs to, to be accepted or rejected.
class PanDetails {
  public:
    explicit PanDetails(Screen& form);
    void Open(const Person& person);

    std::function<void(const Person&)> accepted;
    std::function<void()> rejected;

    Frame FraDEt;
    Label lblnamec, LblD1;
    Label lbladdressc, LblD2;
    Label lblcityc, LblD3;
    Label lblstatec, LblD4;
    Label lblpinc, LblD5;
    cmd CmdACC;
    cmd CmdREj;

  private:
    Form& form_;
    Person person_;
    bool isAccepted_ = false;
};

} // namespace pgbp
