// Controllers that answer anything at all.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <random>

#include "panel/MainControlForm.h"
#include "parameters/SetupParameters.h"
#include "programs/XThreadForm.h"
#include "support/World.h"
#include "terminal/VariableForm.h"

namespace zlt::test {
namespace {

/// The same throws at each run.
class Dice {
 public:
    int upTo(int most) { return std::uniform_int_distribution(0, most)(m_generator); }

    /// A line without its end: noise, or something that is nearly a number.
    std::string line() {
        constexpr std::string_view nearly = "0123456789012345678901234567890123456789+-. #e";
        const bool noise = upTo(2) == 0;
        std::string text = upTo(3) == 0 ? "#01" : "";
        for (int left = upTo(noise ? 40 : 12); left > 0; --left) {
            const auto byte = static_cast<std::size_t>(upTo(255));
            text += noise ? static_cast<char>(byte) : nearly[byte % nearly.size()];
        }
        return text;
    }

 private:
    std::mt19937 m_generator;
};

/// A scripted controller that answers now and then with anything, or not at all.
struct WildWorld : World {
    /// The more calm, the fewer faults.
    WildWorld(Dice& dice, int calm) {
        answerAsController();
        gate.indifferent = true;
        bus.answer = [this, &dice, calm](const std::string& request) -> std::optional<std::string> {
            if (dice.upTo(calm) > 1)
                return bus.usualReply(request);
            if (dice.upTo(9) == 0)
                return std::nullopt;
            return dice.line();
        };
    }
};

/// Presses whatever can be pressed, as an operator who has lost patience.
void pressAnything(QWidget& form, Dice& dice) {
    // A screen that is shown over this one is closed again.
    QTimer closer;
    QObject::connect(&closer, &QTimer::timeout, &form, [&form] {
        if (QWidget* above = QApplication::activeModalWidget(); above && above != &form)
            above->close();
    });
    closer.start(0);
    for (int turn = 0; turn < 20 && form.isVisible(); ++turn) {
        for (QTimer* timer : form.findChildren<QTimer*>())
            if (timer->isActive())
                QMetaObject::invokeMethod(timer, "timeout");
        QList<QAbstractButton*> buttons;
        for (auto* button : form.findChildren<QAbstractButton*>())
            if (button->isVisible() && button->isEnabled() && !button->objectName().isEmpty())
                buttons << button;
        if (form.isVisible() && !buttons.isEmpty())
            buttons[dice.upTo(static_cast<int>(buttons.size()) - 1)]->click();
        QCoreApplication::processEvents();
    }
    closer.stop();
    form.close();
    EXPECT_FALSE(form.isVisible());
}

template <class Form, class... Args>
void workWildly(Dice& dice, int calm, Args&&... args) {
    WildWorld world(dice, calm);
    try {
        Form form(world.services, std::forward<Args>(args)..., nullptr);
        if constexpr (std::is_same_v<Form, MainControlForm>)
            form.Form_Load({{3}, "9600", "01"});
        else
            form.Form_Load();
        form.show();
        pressAnything(form, dice);
    } catch (const ProgramEnd::Unwind&) {
        // A reply during the load that is no number ends the program.
    }
    EXPECT_EQ(world.bus.portsOpen, 0);
}

TEST(RandomReplies, NeitherCrashNorHangAScreen) {
    Dice dice;
    const LinkHandOver handOver{true, true, {{3}, "9600", "01"}, {322}};
    for (int round = 0; round < 12; ++round) {
        const int calm = 3 + 40 * (round % 4);
        workWildly<MainControlForm>(dice, calm);
        workWildly<SetupParameters>(dice, calm, handOver);
        workWildly<VariableForm>(dice, calm, handOver);
        workWildly<XThreadForm>(dice, calm, handOver);
    }
}

}  // namespace
}  // namespace zlt::test
