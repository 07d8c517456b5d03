#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zlt {

/// An edited text as the lines of a file, the one rule for it: a text that does not end in LF
/// gets a CR LF; then each CR ends a line, written with CR LF, and LFs are dropped. So a line
/// ended by a bare LF joins the next, and what stands between the last CR and a bare LF at the
/// end is lost. Nothing for an empty text, which has no last character to go by. Latin-1.
std::optional<std::string> WriteTextAsLines(std::string_view text);

/// A file's text for the editor or a viewer: every line followed by CR LF.
std::string textOfLines(std::string_view file);

/// A whole number with a blank in the place of a plus sign: " 57", "-1".
std::string withSignBlank(int number);

}  // namespace zlt
