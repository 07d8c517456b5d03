// A walk through all screens: what every control owes an operator, with a mouse or without.

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <memory>

#include "app/SelectComForm.h"
#include "app/SearchCom.h"
#include "panel/forms/MainControlForm.h"
#include "parameters/forms/SetupParameters.h"
#include "programs/forms/ViewCompiledForm.h"
#include "programs/forms/XThreadForm.h"
#include "support/FormDriver.h"
#include "support/World.h"
#include "terminal/forms/TerminalForm.h"
#include "terminal/forms/VariableForm.h"

namespace zlt::test {
namespace {

const LinkHandOver handOver{true, true, {{3}, "9600", "01"}, {322}};

template <class Form, class... Arguments>
std::unique_ptr<QWidget> loaded(World& world, Arguments&&... arguments) {
    auto form =
        std::make_unique<Form>(world.services, std::forward<Arguments>(arguments)..., nullptr);
    form->Form_Load();
    return form;
}

struct ScreenRow {
    const char* name;
    std::unique_ptr<QWidget> (*make)(World& world);
};

const ScreenRow screens[] = {
    {"start-up",
     [](World& world) -> std::unique_ptr<QWidget> {
         auto form = std::make_unique<SelectComForm>(world.services, world.directory);
         form->Form_Load();
         return form;
     }},
    {"search", [](World& world) { return loaded<SearchCom>(world, SearchMode::all); }},
    {"panel",
     [](World& world) -> std::unique_ptr<QWidget> {
         auto form = std::make_unique<MainControlForm>(world.services, nullptr);
         form->Form_Load({{3}, "9600", "01"});
         return form;
     }},
    {"setup",
     [](World& world) {
         for (const char* number : {"POL", "DL", "SLOAD", "DB", "RT"})
             world.bus.replies[number] = "1";
         return loaded<SetupParameters>(world, handOver);
     }},
    {"terminal",
     [](World& world) {
         static CommandHistory history;
         return loaded<TerminalForm>(world, handOver, history);
     }},
    {"variables", [](World& world) { return loaded<VariableForm>(world, handOver); }},
    {"threads", [](World& world) { return loaded<XThreadForm>(world, handOver); }},
    {"listing",
     [](World& world) -> std::unique_ptr<QWidget> {
         return std::make_unique<ViewCompiledForm>(world.services, "0000 END\r\n", nullptr);
     }},
};

bool isControl(const QWidget& widget) {
    return widget.isVisible() && (widget.focusPolicy() & Qt::TabFocus) != 0 &&
           !qobject_cast<QComboBox*>(widget.parentWidget());  // the box speaks for its own field
}

/// The controls in the order in which the Tab key visits them.
std::vector<QWidget*> inTabOrder(QWidget& screen) {
    std::vector<QWidget*> order;
    for (QWidget* next = screen.nextInFocusChain(); next != &screen;
         next = next->nextInFocusChain())
        if (isControl(*next))
            order.push_back(next);
    return order;
}

std::string labelOrToolTip(const QWidget& screen, const QWidget& control) {
    for (const QLabel* label : screen.findChildren<QLabel*>())
        if (label->buddy() == &control)
            return label->text().toStdString();
    const auto* button = qobject_cast<const QAbstractButton*>(&control);
    return (button ? button->text() + control.toolTip() : control.toolTip()).toStdString();
}

/// Whether a reader who has just read `before` goes on at `after`: to the right of it or below.
/// They are compared as parts of the smallest frame that holds both.
bool follows(const QWidget& screen, const QWidget* before, const QWidget* after) {
    while (!before->parentWidget()->isAncestorOf(after))
        before = before->parentWidget();
    while (after->parentWidget() != before->parentWidget())
        after = after->parentWidget();
    const QRect first(before->mapTo(&screen, QPoint()), before->size());
    const QRect second(after->mapTo(&screen, QPoint()), after->size());
    return second.left() > first.right() || second.top() > first.bottom();
}

TEST(Screens, OweEveryControlANameASizeAndAPlaceInTheTabOrder) {
    for (const ScreenRow& row : screens) {
        SCOPED_TRACE(row.name);
        World world;
        world.answerAsController();
        const auto screen = row.make(world);
        screen->show();
        const auto controls = inTabOrder(*screen);
        ASSERT_FALSE(controls.empty());
        for (QWidget* control : controls) {
            SCOPED_TRACE(control->objectName().toStdString());
            EXPECT_NE(labelOrToolTip(*screen, *control), "");
            EXPECT_FALSE(
                QAccessible::queryAccessibleInterface(control)->text(QAccessible::Name).isEmpty());
        }
        for (std::size_t next = 1; next < controls.size(); ++next)
            EXPECT_TRUE(follows(*screen, controls[next - 1], controls[next]))
                << controls[next]->objectName().toStdString() << " comes after "
                << controls[next - 1]->objectName().toStdString();
        for (const QWidget* part : screen->findChildren<QWidget*>()) {
            const bool shows = qobject_cast<const QLabel*>(part) || isControl(*part);
            if (!shows || !part->isVisible())
                continue;
            QSize wanted = part->sizeHint();
            if (part->hasHeightForWidth())  // text that wraps is content with the width it gets
                wanted = {part->minimumSizeHint().width(), part->heightForWidth(part->width())};
            EXPECT_TRUE(part->width() >= wanted.width() && part->height() >= wanted.height())
                << part->objectName().toStdString() << " is " << part->width() << "x"
                << part->height() << " and wants " << wanted.width() << "x" << wanted.height();
        }
        EXPECT_LE(screen->frameGeometry().width(), 1366);
        EXPECT_LE(screen->frameGeometry().height(), 700);  // a title and a task bar beside it
    }
}

TEST(Screens, FollowTheDesktopIntoTheDark) {
    World world;
    world.answerAsController();
    const auto panel = screens[2].make(world);
    panel->show();
    const QWidget& position = control<QWidget>(*panel, "Pos");
    const QPalette light = QApplication::palette();
    const QPalette dark(Qt::black);
    QApplication::setPalette(dark);
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return position.palette().color(QPalette::Base) == dark.color(QPalette::Window); }));
    EXPECT_EQ(position.palette().color(QPalette::Text), dark.color(QPalette::Text));
    QApplication::setPalette(light);
}

}  // namespace
}  // namespace zlt::test
