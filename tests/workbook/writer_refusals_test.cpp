#include "workbook/workbook.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace pgbp::xls {
namespace {

using testing::HasSubstr;
using testing::ThrowsMessage;

Workbook WithCell(Position position, Cell cell) { return {{{"Sheet1", {{position, std::move(cell)}}}}}; }

Workbook WithName(std::string name) { return {{{"First"}, {std::move(name)}}}; }

/// Each cell of the first column with another style.
template <typename StyleOf>
Workbook WithStyles(int count, StyleOf styleOf)
{
    Workbook workbook{{{"Sheet1"}}};
    for (int i = 0; i < count; ++i)
        workbook.sheets[0].cells[{i, 0}] = {1.0, {}, styleOf(i)};
    return workbook;
}

Style Filled(int i) { return {.fill = Colour{7, 7, static_cast<std::uint8_t>(i)}}; }
Style Sized(int i) { return {.fontSize = 20 + i / 20.0}; }
Style Formatted(int i) { return {.numberFormat = std::string(static_cast<std::size_t>(i), '0')}; }

TEST(WriterRefusalsTest, WhatTheFormatCannotHoldIsTold)
{
    const double infinite = std::numeric_limits<double>::infinity(), nan = std::numeric_limits<double>::quiet_NaN();
    const std::string longest(kLongestText, 't');
    struct Row {
        Workbook workbook;
        const char* message;
    };
    const Row rows[] = {
        {{}, "at least one sheet"},
        {WithName(""), "needs a name"},
        {WithName("12345678901234567890123456789012"), "longer than 31"},
        {WithName("a/b"), "Sheet a/b: the name has a character"},
        {WithName("'a"), "character"},
        {WithName("a'"), "character"},
        {WithName(std::string("a\0b", 3)), "Sheet a"},
        {WithName("\xFF"), "UTF-8"},
        {WithName("FIRST"), "another sheet"},
        {WithCell({65536, 0}, {1.0}), "outside the sheet"},
        {WithCell({0, 256}, {1.0}), "outside the sheet"},
        {WithCell({-1, 0}, {1.0}), "outside the sheet"},
        {WithCell({0, -1}, {1.0}), "outside the sheet"},
        {WithCell({4, 2}, {infinite}), "Sheet Sheet1: cell C5: the number is not finite"},
        {WithCell({4, 2}, {nan}), "not finite"},
        {WithCell({4, 2}, {longest + 't'}), "cell C5: the text is longer than 32767"},
        {WithCell({4, 2}, {{}, "=C1*2"}), "cell C5: the formula"},
        {WithCell({4, 2}, {{}, "=C5"}), "cell C5: its formula"},
        {WithCell({4, 2}, {1.0, {}, {.fontSize = 0.5}}), "font size"},
        {WithCell({4, 2}, {1.0, {}, {.fontSize = 410}}), "font size"},
        {WithCell({4, 2}, {1.0, {}, {.fontSize = nan}}), "font size"},
        {WithCell({4, 2}, {1.0, {}, {.numberFormat = std::string(256, '0')}}), "longer than 255"},
        {{{{"Sheet1", {}, {{256, {}}}}}}, "outside the sheet"},
        {{{{"Sheet1", {}, {{0, {.width = 255.5}}}}}}, "width of column 1"},
        {{{{"Sheet1", {}, {{0, {.width = -1}}}}}}, "width of column 1"},
        {WithStyles(57, Filled), "more than 56 fill colours"},
        {WithStyles(600, Sized), "fonts"},
        {WithStyles(
             4001,
             [](int i) { return Style{.fontSize = 10 + i / 20 * 0.5, .numberFormat = std::string(i % 20u, '0')}; }),
         "styles"},
    };
    for (const Row& row : rows)
        EXPECT_THAT([&] { WriteXls(row.workbook); }, ThrowsMessage<WorkbookError>(HasSubstr(row.message)));
    for (const Workbook& most : {WithStyles(56, Filled), WithStyles(400, Sized), WithStyles(255, Formatted),
                                 WithName("1234567890123456789012345678901"), WithCell({65535, 255}, {longest})})
        EXPECT_NO_THROW(WriteXls(most));
}

TEST(WriterRefusalsTest, TextsThatAreNotUtf8AreRefused)
{
    for (const char* bad : {"\x80", "a\xC3", "\xC3(", "\xC0\xAF", "\xE0\x80\xAF", "\xED\xA0\x80", "\xED\xBF\xBF",
                            "\xF0\x80\x80\xAF", "\xF4\x90\x80\x80", "\xF8\x88\x80\x80\x80", "\xFE", "\xE0\xA4"})
        EXPECT_THAT([&] { WriteXls(WithCell({0, 0}, {bad})); }, ThrowsMessage<WorkbookError>(HasSubstr("UTF-8")));
}

} // namespace
} // namespace pgbp::xls
