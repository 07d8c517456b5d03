#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>

#include "platform/Gate.h"

namespace zlt::test {

/// A gate that answers from a queue: each box must have been announced, with its exact text.
/// A box that nobody expected fails the test, and so does an announced one that never came.
class RecordingGate : public Gate {
 public:
    ~RecordingGate() override;

    /// Announces a message; `whileShown` runs as the operator would act while it is up.
    void expectMessage(std::string text, std::function<void()> whileShown = {}) {
        m_expected.push_back({std::move(text), true, std::move(whileShown)});
    }
    /// Announces a message that only needs to hold these words.
    void expectMessageWith(std::string words, std::function<void()> whileShown = {}) {
        m_expected.push_back({std::move(words), false, std::move(whileShown)});
    }

    /// Announces a Yes/No question and the operator's answer to it.
    void expectQuestion(const std::string& title, const std::string& text, bool answer);
    /// Announces a file dialog of this title, filter and initial name, and the name chosen in
    /// it; nothing cancels it.
    void expectOpenDialog(const FileChoice& choice, std::optional<std::string> chosen,
                          std::function<void()> whileShown = {});
    void expectSaveDialog(const FileChoice& choice, std::optional<std::string> chosen,
                          std::function<void()> whileShown = {});
    /// Announces a dialog whose texts only need to hold these words.
    void expectSaveDialogWith(std::string words, std::optional<std::string> chosen,
                              std::function<void()> whileShown = {}) {
        m_expected.push_back({std::move(words), false, std::move(whileShown), std::move(chosen)});
    }

    void message(std::string_view text) override { meet(std::string(text)); }
    bool ask(std::string_view title, std::string_view text) override;
    std::optional<std::string> chooseToOpen(const FileChoice& choice) override;
    std::optional<std::string> chooseToSave(const FileChoice& choice) override;
    [[nodiscard]] bool satisfied() const { return m_expected.empty(); }

    /// Boxes that nobody expected are answered with No and Cancel.
    bool indifferent = false;

 private:
    struct Expected {
        std::string text;  ///< kind, title and text, told apart by bars
        bool whole = true;
        std::function<void()> whileShown = {};
        std::optional<std::string> answer = {};
    };
    /// Checks a box against the front of the queue and returns the operator's answer.
    std::optional<std::string> meet(const std::string& shown);

    std::deque<Expected> m_expected;
};

}  // namespace zlt::test
