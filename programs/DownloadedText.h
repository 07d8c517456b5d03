#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zlt {

/// The text that the controller's program was made of, as far as this panel has seen it: compiled
/// here, and that listing downloaded.
class DownloadedText {
 public:
    /// The compiler made `listing`, its result file, of `text` (Latin-1, CR LF between lines).
    void compiled(std::string text, std::string listing);
    /// This listing stands in the controller now; where it is not that of the last compile nothing
    /// is known of its text.
    void downloaded(std::string_view listing);
    /// What stands in the controller is not known any more.
    void forget() { m_text.reset(); }

    /// Nothing while it is not known.
    [[nodiscard]] const std::optional<std::string>& text() const { return m_text; }
    /// The text's line, from 1, that a program counter, from 0, stands for. Nothing where the
    /// listing has another number of lines than the text: then they do not stand side by side.
    [[nodiscard]] std::optional<int> lineOf(std::int32_t counter) const;

 private:
    std::string m_compiledText;
    std::string m_listing;
    std::optional<std::string> m_text;
    int m_lines = 0;  ///< of the text, 0 where the listing's lines are not the text's
};

}  // namespace zlt
