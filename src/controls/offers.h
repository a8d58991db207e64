#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace pgbp {

/// How an offer follows from what is typed.
enum class OfferMatch {
    Begins, ///< with the text
    Words   ///< each typed word begins one of its words, in any order
};

/// Texts to choose from, of which those that match what is typed are offered below the field. Only a list to choose
/// from: what is typed is never changed by it.
class Offers {
  public:
    static constexpr int kMost = 8; ///< entries in sight

    /// The texts to choose from, in the order in which they are offered. Read once when the screen or its list opens,
    /// never at a key.
    void SetTexts(std::vector<std::string> texts, OfferMatch match = OfferMatch::Begins);
    bool Any() const { return !texts_.empty(); }

    /// Offers the texts that match, without regard to case; the very text itself is none to choose. "" offers all.
    void Show(std::string_view typed);
    void Close();

    bool IsOpen() const { return !shown_.empty(); }
    const std::vector<std::string>& shown() const { return shown_; }
    int marked() const { return marked_; } ///< -1 when none is
    void MarkNext();
    void MarkPrevious(); ///< from the first one back to none

  private:
    bool Matches(const std::string& text, std::string_view typed) const;

    std::vector<std::string> texts_;
    OfferMatch match_ = OfferMatch::Begins;
    std::vector<std::string> shown_;
    int marked_ = -1;
};

} // namespace pgbp
