// Controllers that answer anything at all, and an operator who presses anything.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <random>

#include "panel/forms/MainControlForm.h"
#include "parameters/forms/SetupParameters.h"
#include "programs/forms/ProgramDraft.h"
#include "programs/forms/XThreadForm.h"
#include "support/World.h"
#include "terminal/forms/VariableForm.h"

namespace zlt::test {
namespace {

/// A scripted controller that now and then answers nonsense, or not at all.
struct WildWorld : World {
    /// The more calm, the fewer faults. A seed makes the same throws at each run.
    WildWorld(unsigned seed, std::size_t calm) : dice(seed) {
        answerAsController();
        gate.indifferent = true;
        const std::optional<std::string> nonsense[] = {
            std::nullopt, "",     "0",     "-1",       "2147483648",         "1.5e",
            "ZLD",        "#01#", "OK\r7", "\xFF\n\t", std::string(300, '9')};
        bus.answer = [=, this](const std::string& request) -> std::optional<std::string> {
            if (upTo(calm) > 1)
                return bus.usualReply(request);
            return nonsense[upTo(std::size(nonsense) - 1)];
        };
    }
    std::size_t upTo(std::size_t most) {
        return std::uniform_int_distribution<std::size_t>(0, most)(dice);
    }
    void pressAnything(QWidget& form) {
        for (QTimer* timer : form.findChildren<QTimer*>())
            if (timer->isActive())
                QMetaObject::invokeMethod(timer, "timeout");
        std::vector<QAbstractButton*> buttons;
        for (auto* button : form.findChildren<QAbstractButton*>())
            if (button->isVisible() && button->isEnabled() && !button->objectName().isEmpty())
                buttons.push_back(button);
        if (!buttons.empty())
            buttons[upTo(buttons.size() - 1)]->click();
        QCoreApplication::processEvents();
    }
    /// Loads a screen, works it for a while and closes it; so are those shown over it.
    template <class Form, class... Args>
    void work(Form&& form, Args&&... args) {
        QTimer closer;
        QObject::connect(&closer, &QTimer::timeout, &form, [&form] {
            if (QWidget* above = QApplication::activeModalWidget(); above && above != &form)
                above->close();
        });
        closer.start(0);
        try {
            form.Form_Load(std::forward<Args>(args)...);
            form.show();
        } catch (const ProgramEnd::Unwind&) {
            // A port lost or a reply that is no number, in the load, ends the program.
        }
        for (int turn = 0; turn < 20 && form.isVisible(); ++turn)
            pressAnything(form);
        form.close();
        EXPECT_FALSE(form.isVisible());
    }

    std::mt19937 dice;
    ProgramDraft draft{services};
};

TEST(RandomReplies, NeitherCrashNorHangAScreen) {
    const LinkHandOver handOver{true, true, {{3}, "9600", "01"}, {322}};
    for (unsigned round = 0; round < 12; ++round)
        for (int screen = 0; screen < 4; ++screen) {
            WildWorld world(round, 3 + 40 * (round % 4));
            if (screen == 0)
                world.work(MainControlForm(world.services, world.draft, nullptr),
                           handOver.connection);
            else if (screen == 1)
                world.work(SetupParameters(world.services, handOver, nullptr));
            else if (screen == 2)
                world.work(VariableForm(world.services, handOver, nullptr));
            else
                world.work(XThreadForm(world.services, handOver, nullptr));
            EXPECT_EQ(world.bus.portsOpen, 0);
        }
}

}  // namespace
}  // namespace zlt::test
