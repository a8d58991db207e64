#pragma once

#include "support/empty_practice.h"

namespace pgbp {

/// A practice with one assessee-year of a firm, and its computation screen on display.
template <typename ComputationScreen>
class LineUnderTest : public EmptyPractice, public testing::Test {
  public:
    LineUnderTest() { Year(2023); }
    ComputationScreen& OpenScreen(BusinessKind kind = kNormal, const char* caption = "Normal Business")
    {
        return OpenLine<ComputationScreen>(kind, caption);
    }
};

} // namespace pgbp
