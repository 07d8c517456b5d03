#pragma once

#include <stdexcept>
#include <string>

namespace zlt::ctl {

/// What the program's exit code says; 128 and the number of a signal stand beside these.
enum class ExitCode {
    done = 0,
    refused = 1,  ///< by the controller or a tool, or a value is wrong, or what was asked is not so
    usage = 2,
    noReply = 3,
    port = 4,
};

/// A command cannot be carried out. what() is the sentence for the operator, UTF-8; empty when the
/// messages before it have said so.
class Failure : public std::runtime_error {
 public:
    Failure(ExitCode code, const std::string& sentence)
        : std::runtime_error(sentence), m_code(code) {}

    [[nodiscard]] ExitCode code() const { return m_code; }

 private:
    ExitCode m_code;
};

/// Whoever read standard output does not any more: the end, without a word.
class OutputClosed {};

}  // namespace zlt::ctl
