#include "support/RecordingGate.h"

#include <gtest/gtest.h>

namespace zlt::test {

RecordingGate::~RecordingGate() {
    for (const Expected& box : m_expected)
        ADD_FAILURE() << "never shown: " << box.text;
}

void RecordingGate::expectMessage(std::string text, std::function<void()> whileShown) {
    m_expected.push_back({std::move(text), true, std::move(whileShown)});
}

void RecordingGate::expectMessageWith(std::string words) {
    m_expected.push_back({std::move(words), false, {}});
}

void RecordingGate::message(std::string_view text) {
    if (m_expected.empty()) {
        ADD_FAILURE() << "nobody expected the message: " << text;
        return;
    }
    const Expected box = std::move(m_expected.front());
    m_expected.pop_front();
    if (box.whole)
        EXPECT_EQ(text, box.text);
    else
        EXPECT_NE(text.find(box.text), std::string_view::npos) << text;
    if (box.whileShown)
        box.whileShown();
}

}  // namespace zlt::test
