#pragma once

#include <ostream>
#include <string>
#include <string_view>

#include "platform/ShownState.h"

namespace zlt::ctl {

/// How results and notes look.
struct Style {
    bool json = false;
    bool quiet = false;     ///< no notes, no progress
    bool colours = false;   ///< on standard output
    bool progress = false;  ///< standard error is a terminal, where a line can be written over
};

/// Results on standard output, a line each; all else on standard error, each line begun by the
/// program's name. Texts are UTF-8.
class Output {
 public:
    Output(std::ostream& results, std::ostream& errors) : m_results(results), m_errors(errors) {}

    /// A line of results, out at once. Throws OutputClosed, and Failure where the line cannot be
    /// written for another reason.
    void line(std::string_view text) { write(std::string(text) + '\n'); }
    /// The same without a line end, as a text grows.
    void write(std::string_view text);

    void error(std::string_view text) { tell(text); }
    /// What is good to know and no error.
    void note(std::string_view text);
    /// In place of the progress before; an empty text takes it away.
    void progress(std::string_view text);

    /// The text in the colour of its meaning, where there are colours.
    [[nodiscard]] std::string coloured(std::string_view text, Meaning meaning) const;

    Style style;

 private:
    void tell(std::string_view text);

    std::ostream& m_results;
    std::ostream& m_errors;
    bool m_progressShown = false;
};

/// A text of the wire (Latin-1) as UTF-8 in one line: "?" for each control character.
std::string printable(std::string_view latin1);

/// One JSON object in one line.
class JsonObject {
 public:
    /// `text` is UTF-8.
    JsonObject& add(std::string_view name, std::string_view text);
    /// Any JSON value as it stands: a number, "true", "null".
    JsonObject& addRaw(std::string_view name, std::string_view value);
    [[nodiscard]] std::string text() const { return "{" + m_members + "}"; }

 private:
    std::string m_members;
};

/// The text (Latin-1) as a JSON number where it is one, else as a JSON string.
std::string jsonValue(std::string_view latin1);

}  // namespace zlt::ctl
