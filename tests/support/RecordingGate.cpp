#include "support/RecordingGate.h"

#include <gtest/gtest.h>

namespace zlt::test {
namespace {

std::string question(std::string_view title, std::string_view text) {
    return "question|" + std::string(title) + "|" + std::string(text);
}

std::string dialog(const char* kind, const FileChoice& choice) {
    return std::string(kind) + "|" + choice.title + "|" + choice.filter + "|" + choice.initialName;
}

}  // namespace

RecordingGate::~RecordingGate() {
    for (const Expected& box : m_expected)
        ADD_FAILURE() << "never shown: " << box.text;
}

void RecordingGate::expectQuestion(const std::string& title, const std::string& text, bool answer) {
    m_expected.push_back({question(title, text), true, {}, answer ? "yes" : "no"});
}

void RecordingGate::expectOpenDialog(const FileChoice& choice, std::optional<std::string> chosen,
                                     std::function<void()> whileShown) {
    m_expected.push_back({dialog("open", choice), true, std::move(whileShown), std::move(chosen)});
}

void RecordingGate::expectSaveDialog(const FileChoice& choice, std::optional<std::string> chosen,
                                     std::function<void()> whileShown) {
    m_expected.push_back({dialog("save", choice), true, std::move(whileShown), std::move(chosen)});
}

std::optional<std::string> RecordingGate::meet(const std::string& shown) {
    if (m_expected.empty()) {
        EXPECT_TRUE(indifferent) << "nobody expected: " << shown;
        return std::nullopt;
    }
    const Expected box = std::move(m_expected.front());
    m_expected.pop_front();
    if (box.whole)
        EXPECT_EQ(shown, box.text);
    else
        EXPECT_NE(shown.find(box.text), std::string::npos) << shown;
    if (box.whileShown)
        box.whileShown();
    return box.answer;
}

bool RecordingGate::ask(std::string_view title, std::string_view text) {
    return meet(question(title, text)) == "yes";
}

std::optional<std::string> RecordingGate::chooseToOpen(const FileChoice& choice) {
    return meet(dialog("open", choice));
}

std::optional<std::string> RecordingGate::chooseToSave(const FileChoice& choice) {
    return meet(dialog("save", choice));
}

}  // namespace zlt::test
