// A walk through all screens: what every control owes an operator, with a mouse or without.

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyleOptionFrame>
#include <QTest>
#include <memory>

#include "app/SearchCom.h"
#include "app/SelectComForm.h"
#include "panel/forms/MainControlForm.h"
#include "panel/forms/TrendForm.h"
#include "parameters/forms/SetupParameters.h"
#include "programs/forms/ProgramDraft.h"
#include "programs/forms/ProgramEditForm2.h"
#include "programs/forms/ProgramEditor.h"
#include "programs/forms/ProgramSheet.h"
#include "programs/forms/ViewCompiledForm.h"
#include "programs/forms/XThreadForm.h"
#include "support/FormDriver.h"
#include "support/World.h"
#include "terminal/forms/BusForm.h"
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

struct OwnDraft {
    explicit OwnDraft(const Services& services) : draft(services) {}
    ProgramDraft draft;
};
/// The panel with a program text of its own, as no start-up screen holds one for it.
struct LonePanel : private OwnDraft, public MainControlForm {
    explicit LonePanel(const Services& services)
        : OwnDraft(services), MainControlForm(services, draft, nullptr) {}
};

/// A window beside a screen, with one that it stands beside.
struct OwnOwner {
    QWidget owner;
    std::shared_ptr<WindowPlaces> places = std::make_shared<WindowPlaces>();
};
struct LoneBus : private OwnOwner, public BusForm {
    explicit LoneBus(const Services& services) : BusForm(services, owner, places) {}
};
struct OwnRecord : public OwnOwner {
    TrendRecord record;
};
struct LoneTrend : private OwnRecord, public TrendForm {
    explicit LoneTrend(const Services& services) : TrendForm(services, owner, places, record) {}
};

/// The program editor with all its bars open, over no panel.
struct OwnActions : OwnDraft, PanelLinkListener {
    explicit OwnActions(const Services& services)
        : OwnDraft(services),
          link(services, *this),
          sheet(services, draft, {box, lines, note, [] {}, [](const std::vector<int>&) {}}),
          ownActions(services, link, sheet, draft.file()) {}
    void commChanged(bool) override {}
    void exchangeTimedOut() override {}
    void portLost() override {}
    void pollHeldOff() override {}
    void portNotTakenBack() override {}

    PanelLink link;
    ProgramEditor box;
    QLabel lines, note;
    ProgramSheet sheet;
    ProgramActions ownActions;
};
struct LoneEditor : private OwnActions, public ProgramEditForm2 {
    explicit LoneEditor(const Services& services)
        : OwnActions(services), ProgramEditForm2(services, ownActions, draft, {}, nullptr) {
        showDevice("01");
        ProgramEditForm2::sheet().setProgram("X1000\r\nEND");
        ProgramEditForm2::sheet().showErrors({1, 2});
        for (const char* bar : {"findBar", "lineRow"})
            control<QWidget>(*this, bar).show();
    }
};

struct ScreenRow {
    const char* name;
    std::unique_ptr<QWidget> (*make)(World& world);
};

std::unique_ptr<QWidget> panelOf(World& world) {
    auto form = std::make_unique<LonePanel>(world.services);
    form->Form_Load({{3}, "9600", "01"});
    return form;
}

const ScreenRow screens[] = {
    {"start-up",
     [](World& world) -> std::unique_ptr<QWidget> {
         auto form = std::make_unique<SelectComForm>(world.services, world.directory);
         form->Form_Load();
         return form;
     }},
    {"search", [](World& world) { return loaded<SearchCom>(world, SearchMode::all); }},
    {"panel", panelOf},
    {"panel, finding",
     [](World& world) {
         auto form = panelOf(world);
         control<QWidget>(*form, "findBar").show();
         return form;
     }},
    {"trend",
     [](World& world) -> std::unique_ptr<QWidget> {
         return std::make_unique<LoneTrend>(world.services);
     }},
    {"editor",
     [](World& world) -> std::unique_ptr<QWidget> {
         return std::make_unique<LoneEditor>(world.services);
     }},
    {"setup",
     [](World& world) {
         for (const char* number : {"POL", "DL", "SLOAD", "DB", "RT", "CURR", "CURI", "MS"})
             world.bus.replies[number] = "1";
         return loaded<SetupParameters>(world, handOver);
     }},
    {"terminal",
     [](World& world) {
         static CommandHistory history;
         return loaded<TerminalForm>(world, handOver, history);
     }},
    {"variables", [](World& world) { return loaded<VariableForm>(world, handOver); }},
    {"bus",
     [](World& world) -> std::unique_ptr<QWidget> {
         ScreenLink(world.services, flavours::terminal, nullptr).SendReceive("PX");
         return std::make_unique<LoneBus>(world.services);
     }},
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

/// How high the characters of a field are painted, in pixels: the rows that hold something of them.
int paintedHeight(QWidget& screen, const char* name) {
    auto& field = control<QLineEdit>(screen, name);
    const QImage image = field.grab(field.rect().adjusted(4, 4, -4, -4)).toImage();
    const QRgb ground = image.pixel(image.width() - 1, image.height() / 2);
    const auto holdsText = [&](int y) {
        for (int x = 0; x < image.width(); ++x)
            if (std::abs(qGray(image.pixel(x, y)) - qGray(ground)) > 100)
                return true;
        return false;
    };
    int rows = 0;
    for (int y = 0; y < image.height(); ++y)
        rows += holdsText(y);
    return rows;
}

TEST(Screens, ShowPositionAndStatusLargeAndNoNumberCut) {
    World world;
    world.answerAsController();
    for (const char* number : {"PX", "EX", "CUR", "SPC"})
        world.bus.replies[number] = "-2147483648";
    world.bus.replies["MST"] = "128";
    const auto panel = panelOf(world);
    panel->show();
    tick(*panel, "Timer1");
    const auto heightsAt = [&](int width, int height) {
        panel->resize(width, height);
        QCoreApplication::processEvents();
        for (const char* name :
             {"Pos", "EncPos", "FollowingError", "Current", "ProgIndex", "Stat"}) {
            const auto& field = control<QLineEdit>(*panel, name);
            QStyleOptionFrame frame;
            frame.initFrom(&field);
            frame.lineWidth = 1;
            const QRect inside =
                field.style()->subElementRect(QStyle::SE_LineEditContents, &frame, &field);
            EXPECT_LE(field.fontMetrics().horizontalAdvance(field.text()), inside.width() - 4)
                << name << " at " << width;
            EXPECT_LE(field.fontMetrics().height(), inside.height()) << name << " at " << width;
        }
        return std::pair(paintedHeight(*panel, "Pos"), paintedHeight(*panel, "Stat"));
    };
    // Some 7 and 5 mm at 96 dots to the inch: a position is read at two metres.
    const auto small = heightsAt(1366, 700);
    EXPECT_GE(small.first, 26);
    EXPECT_GE(small.second, 19);
    const auto large = heightsAt(1920, 1010);
    EXPECT_GE(large.first, small.first * 3 / 2);
    EXPECT_GE(large.second, small.second * 5 / 4);
    EXPECT_EQ(heightsAt(1366, 700), small) << "a large window can be made small again";
    EXPECT_EQ(panel->size(), QSize(1366, 700));
}

TEST(Screens, FollowTheDesktopIntoTheDark) {
    World world;
    world.answerAsController();
    const auto panel = panelOf(world);
    panel->show();
    tick(*panel, "Timer1");
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
