#pragma once

#include <deque>
#include <functional>
#include <string>

#include "platform/Gate.h"

namespace zlt::test {

/// A gate that answers from a queue: each box must have been announced, with its exact text.
/// A box that nobody expected fails the test, and so does an announced one that never came.
class RecordingGate : public Gate {
 public:
    ~RecordingGate() override;

    /// Announces a message; `whileShown` runs as the operator would act while it is up.
    void expectMessage(std::string text, std::function<void()> whileShown = {});
    /// Announces a message that only needs to hold these words.
    void expectMessageWith(std::string words);

    void message(std::string_view text) override;
    bool satisfied() const { return m_expected.empty(); }

 private:
    struct Expected {
        std::string text;
        bool whole = true;
        std::function<void()> whileShown;
    };
    std::deque<Expected> m_expected;
};

}  // namespace zlt::test
