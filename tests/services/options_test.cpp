#include "services/options.h"

#include <gtest/gtest.h>

using namespace pgbp;

TEST(Options, AreTakenFromAnywhereWithTheirValue)
{
    std::vector<std::string> words{"handover", "--program-folder", "a b", "1001r2023-24"};
    EXPECT_EQ(TakeOption(words, "--program-folder"), "a b");
    EXPECT_EQ(words, (std::vector<std::string>{"handover", "1001r2023-24"}));
    EXPECT_EQ(TakeOption(words, "--program-folder"), std::nullopt);
    for (std::vector<std::string> bad : {std::vector<std::string>{"--picture"}, {"--picture", ""}})
        EXPECT_THROW(TakeOption(bad, "--picture"), std::runtime_error);
}
