#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ctl/Output.h"
#include "platform/Gate.h"

namespace zlt::ctl {

/// The rules' messages, questions and file choices on a command line: messages are kept until it
/// is known whether they tell of a failure, and options answer the rest.
class CommandGate final : public Gate {
 public:
    void message(std::string_view text) override { m_messages.emplace_back(text); }
    bool ask(std::string_view title, std::string_view text) override;
    std::optional<std::string> chooseToOpen(const FileChoice&) override { return file; }
    std::optional<std::string> chooseToSave(const FileChoice&) override { return file; }

    /// Tells what has been kept, as notes or as errors.
    void tell(Output& output, bool asErrors);

    bool yes = false;  ///< the answer to each question
    std::string file;  ///< the answer to each file choice
    /// The questions that were answered with No.
    [[nodiscard]] const std::vector<std::string>& declined() const { return m_declined; }

 private:
    std::vector<std::string> m_messages;
    std::vector<std::string> m_declined;
};

}  // namespace zlt::ctl
