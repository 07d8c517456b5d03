#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zlt {

/// What a file dialog is asked for. All texts UTF-8.
struct FileChoice {
    std::string title;
    std::string filter;       ///< description, bar, pattern: "Text Files (*.txt)|*.txt"
    std::string initialName;  ///< stands in the name field at first; may be empty
};

/// The one way to put a message, a question or a file choice in front of the operator. Events
/// are pumped while one is up. Texts are UTF-8; line ends in them (CR, LF or CR LF) are the
/// caller's and become line breaks only when shown.
class Gate {
 public:
    virtual ~Gate() = default;

    /// Shows `text` under the application's title with one OK button.
    virtual void message(std::string_view text) = 0;

    /// Asks a Yes/No question. Only Yes is true; No is what Enter answers.
    virtual bool ask(std::string_view title, std::string_view text) = 0;

    /// The name chosen to open, which need not exist and may hold a "*". Nothing when the
    /// operator cancelled.
    virtual std::optional<std::string> chooseToOpen(const FileChoice& choice) = 0;

    /// The name chosen to save under; the filter's suffix is added where it has none, and the
    /// operator has agreed to overwriting. Nothing when the operator cancelled.
    virtual std::optional<std::string> chooseToSave(const FileChoice& choice) = 0;
};

}  // namespace zlt
