// Controllers that answer anything at all. The seed is printed; ZLT_SEED repeats a run.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <random>

#include "faults/FakeDevice.h"
#include "link/ScreenLink.h"
#include "panel/MainControlForm.h"
#include "parameters/SetupParameters.h"
#include "platform/NumberConversion.h"
#include "programs/XThreadForm.h"
#include "support/RealWorld.h"
#include "terminal/VariableForm.h"

namespace zlt::test {
namespace {

class Dice {
 public:
    Dice() {
        const char* given = std::getenv("ZLT_SEED");
        m_seed = given ? static_cast<unsigned>(std::atoi(given)) : std::random_device{}() >> 1;
        m_generator.seed(m_seed);
        std::cout << "seed " << m_seed << std::endl;
    }
    unsigned seed() const { return m_seed; }
    int upTo(int most) { return std::uniform_int_distribution(0, most)(m_generator); }

    /// A line without its end: noise, or something that is nearly a number.
    std::string line() {
        constexpr std::string_view nearly = "0123456789012345678901234567890123456789+-. #e";
        const bool noise = upTo(2) == 0;
        std::string text(static_cast<std::size_t>(upTo(noise ? 40 : 12)), '\0');
        for (char& c : text) {
            const int place = upTo(static_cast<int>(nearly.size()) - 1);
            c = noise ? static_cast<char>(upTo(255)) : nearly[static_cast<std::size_t>(place)];
            if (c == '\r')
                c = '\n';
        }
        return (upTo(3) == 0 ? "#01" : "") + text;
    }

 private:
    unsigned m_seed = 0;
    std::mt19937 m_generator;
};

/// Whether only blanks, one sign, digits and one point stand here, each in its place.
bool mayBeANumber(std::string text) {
    const auto drop = [&text](std::string_view which, std::size_t most) {
        std::size_t count = text.find_first_not_of(which);
        count = std::min({count, text.size(), most});
        text.erase(0, count);
        return count > 0;
    };
    constexpr std::string_view digits = "0123456789";
    constexpr std::size_t any = std::string::npos;
    drop(" ", any);
    drop("+-", 1);
    if (!drop(digits, any) || (drop(".", 1) && !drop(digits, any)))
        return false;
    drop(" ", any);
    return text.empty();
}

TEST(RandomReplies, ReachTheCallerAsTheyAreAndAreNumbersOnlyByTheGrammar) {
    constexpr std::size_t count = 10'000;
    Dice dice;
    std::vector<std::string> lines(count);
    std::generate(lines.begin(), lines.end(), [&] { return dice.line(); });
    std::size_t next = 0;
    FakeDevice device([&](const std::string&) { return lines[next++] + "\r"; });

    RealWorld world;
    std::ofstream("zlt-r-485.ports") << "COM1=" << device.path() << "\n";
    ScreenLink link(world.real, flavours::controlPanel, nullptr);
    link.connection = {{1}, "9600", "01"};
    ASSERT_TRUE(link.openPort());
    link.setCommOK(true);

    std::size_t numbers = 0;
    for (const std::string& line : lines) {
        const std::string expected =
            line.starts_with('#') ? line.substr(std::min<std::size_t>(3, line.size())) : line;
        const std::string reply = link.SendReceive("PX");
        ASSERT_EQ(reply, expected) << "seed " << dice.seed();
        if (parseInteger(reply)) {
            ++numbers;
            ASSERT_TRUE(mayBeANumber(reply)) << reply << ", seed " << dice.seed();
        }
    }
    EXPECT_GT(numbers, count / 50) << "the dice must make some numbers too";
    EXPECT_TRUE(link.CommOK());
}

/// Takes every box and says No, or cancels.
class WearyGate : public Gate {
 public:
    void message(std::string_view text) override { EXPECT_NE(text, ""); }
    bool ask(std::string_view, std::string_view) override { return false; }
    std::optional<std::string> chooseToOpen(const FileChoice&) override { return {}; }
    std::optional<std::string> chooseToSave(const FileChoice&) override { return {}; }
};

/// A scripted controller that answers now and then with anything, or not at all.
struct WildWorld : World {
    explicit WildWorld(Dice& dice) {
        answerAsController();
        bus.answer = [this, &dice](const std::string& request) -> std::optional<std::string> {
            const auto known =
                bus.replies.find(request.substr(std::min<std::size_t>(3, request.size())));
            const int cast = dice.upTo(calm);
            if (cast > 1)
                return known == bus.replies.end() ? "OK" : known->second;
            if (dice.upTo(9) == 0)
                return std::nullopt;
            return dice.line();
        };
    }
    WearyGate weary;
    int calm = 30;  ///< the more, the fewer faults
    Services wild{.gate = weary,
                  .waits = waits,
                  .files = files,
                  .help = help,
                  .programEnd = programEnd,
                  .processes = tools,
                  .ownFolder = folder.path().toStdString(),
                  .makePort = [this](QObject*) { return bus.makePort(); }};
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
    if (form.isVisible())
        form.close();
    EXPECT_FALSE(form.isVisible()) << "seed " << dice.seed();
}

template <class Form, class... Args>
void workWildly(Dice& dice, int calm, Args&&... args) {
    WildWorld world(dice);
    world.calm = calm;
    try {
        Form form(world.wild, std::forward<Args>(args)..., nullptr);
        if constexpr (std::is_same_v<Form, MainControlForm>)
            form.Form_Load({{3}, "9600", "01"});
        else
            form.Form_Load();
        form.show();
        pressAnything(form, dice);
    } catch (const ProgramEnd::Unwind&) {
        // A reply during the load that is no number ends the program.
    }
    EXPECT_EQ(world.bus.portsOpen, 0) << "seed " << dice.seed();
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
