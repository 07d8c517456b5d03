// The window beside the panel: what comes into it from the poll, and that it takes nothing from the
// panel, its stops least of all.

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QMouseEvent>
#include <QTest>

#include "panel/forms/TrendForm.h"
#include "support/PanelWorld.h"

namespace zlt::test {
namespace {

class TrendFormTest : public ::testing::Test, public PanelWorld {
 protected:
    TrendFormTest() { load(); }

    TrendForm& openTrend() {
        click(form, "Trend");
        EXPECT_EQ(sent(), "") << "it asks nothing";
        auto* trend = form.findChild<TrendForm*>();
        if (!trend || !trend->isVisible())
            throw std::runtime_error("no trend");
        return *trend;
    }

    /// What Save CSV writes, after the headings: each line less its time, which is none of the
    /// test's.
    std::string saved(TrendForm& trend) {
        const std::string file = folder.filePath(QStringLiteral("trend.csv")).toStdString();
        gate.expectSaveDialogWith("save|Save Trend As|Comma Separated Values (*.csv)|*.csv|trend 2",
                                  file);
        click(trend, "trendSaveCsv");
        EXPECT_EQ(textOf(trend, "trendNote"), "Saved in " + file + ".");
        const std::string text = files.read(file).whole().value_or("");
        std::string values;
        std::size_t begin = text.find('\n') + 1;
        for (std::size_t end = 0; begin < text.size(); begin = end + 2) {
            end = text.find("\r\n", begin);
            const std::string line = text.substr(begin, end - begin);
            values += line.substr(std::min(line.find(','), line.size())) + "\n";
        }
        return values;
    }
    /// A line of that position, the rest as the scripted controller has it.
    static std::string line(const std::string& position, const std::string& error,
                            const std::string& device = "01") {
        return "," + position + ",34," + error + ",800,idle,0,0,0,1,ABS,0,idle,7," + device + "\n";
    }
    void passAt(const char* position) {
        bus.replies["PX"] = position;
        tick(form, "Timer1");
        sent();
    }
};

TEST_F(TrendFormTest, KeepsEachWholePassAndAGapForWhatWasNotRead) {
    passAt("10");  // kept before the window is there
    TrendForm& trend = openTrend();
    passAt("20");
    bus.silent = true;
    passAt("30");
    tick(form, "Timer1");
    bus.silent = false;
    tick(form, "Timer1");  // the probe
    passAt("40");
    gate.expectMessageWith("GUI Version");
    click(form, "About");
    passAt("50");
    clickAndWork(form, "XThread", [&](QWidget& screen) {
        EXPECT_TRUE(trend.isVisible()) << "it stays up, with nothing to show";
        screen.close();
    });
    passAt("60");
    bus.silentAt = "SASTAT";
    passAt("70");
    bus.silentAt.reset();
    tick(form, "Timer1");
    choose(form, "SelectedDeviceID", "07");
    passAt("80");
    EXPECT_EQ(saved(trend), line("10", "-24") + line("20", "-14") + "\n" + line("40", "6") + "\n" +
                                line("50", "16") + "\n" + line("60", "26") + "\n" +
                                line("80", "46", "07"));
    EXPECT_EQ(trend.windowTitle(), QStringLiteral("Trend \u2013 Device 07"));
}

TEST_F(TrendFormTest, TellsInItsOwnLineWhatCameOfASave) {
    TrendForm& trend = openTrend();
    passAt("10");
    const std::string hint = textOf(trend, "trendNote");
    const auto saveAs = [&](const char* button, std::optional<std::string> name) {
        gate.expectSaveDialogWith("save|Save Trend As|", std::move(name));
        click(trend, button);
        return textOf(trend, "trendNote");
    };
    const std::string file = folder.filePath(QStringLiteral("trend.png")).toStdString();
    EXPECT_EQ(saveAs("trendSavePng", file), "Saved in " + file + ".");
    QImage image;
    ASSERT_TRUE(image.load(QString::fromStdString(file)));
    EXPECT_EQ(image.size(), control<QWidget>(trend, "trendPlot").size());
    for (const auto& name : {std::optional<std::string>(), std::optional<std::string>(""),
                             std::optional<std::string>("*")})
        EXPECT_EQ(saveAs("trendSaveCsv", name), hint);
    for (const char* button : {"trendSaveCsv", "trendSavePng"})
        EXPECT_NE(saveAs(button, "no/such/folder/trend.csv")
                      .find("The trend could not be saved in no/such/folder/trend.csv: "),
                  std::string::npos);
    click(trend, "trendCopy");
    EXPECT_EQ(QGuiApplication::clipboard()->image().size(), image.size());
}

TEST_F(TrendFormTest, LeavesThePanelItsStopsAndItsKeys) {
    TrendForm& trend = openTrend();
    for (const char* name : {"trendPause", "trendSpan", "trendPlot", "trendSaveCsv"}) {
        SCOPED_TRACE(name);
        for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Left})
            press(trend, name, key);
        if (auto* box = qobject_cast<QComboBox*>(&control<QWidget>(trend, name)))
            box->hidePopup();
        EXPECT_EQ(sent(), "");
        press(trend, name, Qt::Key_F12);
        EXPECT_EQ(sent(), "HSPD=5000|ACC=250|ABORT");
    }
    EXPECT_TRUE(trend.isVisible());
    auto& box = control<QComboBox>(trend, "trendSpan");
    box.showPopup();
    QWidget* list = QApplication::activePopupWidget();
    ASSERT_TRUE(list);
    auto& stop = control<QWidget>(form, "RSTOP");
    const QPoint place = stop.mapToGlobal(stop.rect().center());
    QMouseEvent press(QEvent::MouseButtonPress, list->mapFromGlobal(place), place, Qt::LeftButton,
                      Qt::LeftButton, {});
    QCoreApplication::sendEvent(list, &press);
    EXPECT_EQ(sent(), "HSPD=5000|ACC=250|STOP") << "with a list of the trend's open";
    auto& jog = control<QAbstractButton>(form, "JOGP");
    const auto pressOn = [&](QWidget& widget, ulong timestamp) {
        const QPoint onJog = jog.mapToGlobal(jog.rect().center());
        QMouseEvent event(QEvent::MouseButtonPress, QPointF(3, 3), onJog, Qt::LeftButton,
                          Qt::LeftButton, {});
        event.setTimestamp(timestamp);
        QCoreApplication::sendEvent(&widget, &event);
    };
    pressOn(control<QWidget>(trend, "trendPlot"), 90'000);
    trend.close();
    EXPECT_FALSE(trend.isVisible());
    pressOn(jog, 90'050);
    EXPECT_FALSE(jog.isDown()) << "the second press of a double click on the trend's Close";
}

TEST_F(TrendFormTest, GoesWithThePanelAndComesBackWhereItStood) {
    TrendForm& trend = openTrend();
    trend.setGeometry(120, 90, 1201, 555);
    const QRect place = trend.geometry();
    click(trend, "trendClose");
    EXPECT_FALSE(trend.isVisible());
    trend.setGeometry(0, 0, 1000, 600);
    EXPECT_EQ(openTrend().geometry(), place);
    // The program ends under a screen over the panel, as by a signal.
    clickAndWork(form, "XThread", [&](QWidget& screen) {
        programEnd.askForEnd(130);
        dynamic_cast<QDialog&>(screen).reject();
    });
    EXPECT_FALSE(form.isVisible());
    EXPECT_FALSE(trend.isVisible());
}

TEST_F(TrendFormTest, EndsTheProgramFromUnderItsFileDialog) {
    TrendForm& trend = openTrend();
    gate.expectSaveDialogWith("save|", "x.csv", [this] { programEnd.askForEnd(143); });
    click(trend, "trendSaveCsv");
    EXPECT_FALSE(trend.isVisible());
}

TEST_F(TrendFormTest, ShowsASpanThatIsChosenOrWheeled) {
    TrendForm& trend = openTrend();
    auto& plot = control<QWidget>(trend, "trendPlot");
    EXPECT_EQ(textOf(trend, "trendSpan"), "1 min");
    choose(trend, "trendSpan", "10 s");
    EXPECT_EQ(shownOn(trend, "trendPause"), "off");
    QWheelEvent wheel(QPointF(400, 50), plot.mapToGlobal(QPointF(400, 50)), {}, QPoint(0, 120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&plot, &wheel);
    EXPECT_EQ(textOf(trend, "trendSpan"), "8 s");
    EXPECT_EQ(shownOn(trend, "trendPause"), "on") << "what is looked at stands still";
    press(trend, "trendPlot", Qt::Key_End);
    EXPECT_EQ(shownOn(trend, "trendPause"), "off");
    click(trend, "trendPause");
    EXPECT_EQ(shownOn(trend, "trendPause"), "on");
}

TEST_F(TrendFormTest, IsShownBesideTheEncoderAsADifference) {
    struct Row {
        const char *position, *encoder, *error;
    };
    const Row table[] = {{"-12", "34", "-46"},
                         {"34 cts", "1", ""},
                         {"1", "", ""},
                         {"7", "7", "0"},
                         {"2147483647", "-2147483648", "4294967295"}};
    for (const Row& row : table) {
        bus.replies["EX"] = row.encoder;
        passAt(row.position);
        EXPECT_EQ(shown("FollowingError"), row.error) << row.position << " and " << row.encoder;
    }
    const auto colour = [this](const char* name) {
        return control<QWidget>(form, name).palette().color(QPalette::Text);
    };
    const QColor live = colour("FollowingError");
    bus.silent = true;
    passAt("1");
    EXPECT_NE(colour("FollowingError"), live);
    EXPECT_EQ(colour("FollowingError"), colour("EncPos"));
}

}  // namespace
}  // namespace zlt::test
