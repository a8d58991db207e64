#pragma once

#include <optional>
#include <span>
#include <string>

namespace pgbp {

/// One of a client's years, with what is known of its head of income.
struct ClientYear {
    std::string code;
    std::string year;                ///< "2023-24"
    std::optional<double> head = {}; ///< nothing where it is not written yet or cannot be read
    double writtenFor = 0;           ///< the minor whose run wrote it; 0: the assessee's own run did
    bool isUnreadable = false;
};

/// The exact amount with a minus, paise only where there are some: "-1,00,000", "4,30,000.50".
std::string ExactFigure(double amount);

/// A round amount as the axis of a chart tells it: "50,000", "1.5 lakh", "2 crore".
std::string RoundFigure(double amount);

/// The head of income as it is told: "4,30,000", "loss of 1,00,000", "1,06,100 (minor 1)", "not written yet".
std::string HeadInWords(const ClientYear& year);

/// "2021-22: 4,30,000; 2022-23: loss of 1,00,000"
std::string InWords(std::span<const ClientYear> years);

} // namespace pgbp
