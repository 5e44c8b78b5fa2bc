// The timeline's panel: bands with marks, objects, what its filters show, the chosen entry.
#include "timeline/panel/TimelinePanel.h"

#include <QHelpEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTableView>
#include <QTest>
#include <QToolButton>
#include <QToolTip>
#include <gtest/gtest.h>

using namespace tv;

namespace {

using namespace tv::timeline;

TimelineEntry entryAt(double seconds, int object, const Details& details) {
    return {static_cast<int64_t>(seconds * 1e6), -1, object, -1, details};
}

TimelineEntry entry(int object, const Details& details) {
    return entryAt(0, object, details);
}

TimelineEntry stateAt(double seconds, int object, int state) {
    return entryAt(seconds, object, State{PlayState{state}});
}

Call call(const char* name) {
    return {name, {}, UndefinedValue()};
}

TEST(TimelinePanel, DrawsStatesAsBandsWithMarksForErrorsAndStalls) {
    StateBands bands(0);
    bands.append({entryAt(0, 1, Created{"video/mp4"}), stateAt(1, 1, 3), stateAt(3, 1, 1),
                  entryAt(5, 1, Stall{2000, 1'000'000}), entryAt(7, 1, Error{5, "HTTP 404", "http://server/no.mp4"}),
                  stateAt(7, 1, 6), entryAt(2, 2, Created{"audio/mp4"}), stateAt(4, 2, 4), entryAt(8, 2, Gone()),
                  entryAt(10, 3, Created{"video/mp4"})});
    const int labels = 26;
    const int width = 1000;
    bands.resize(labels + width, bands.sizeHint().height());
    const QImage picture = bands.grab().toImage();
    // Ten seconds fill the width; the bands are 26 pixels high, below a legend of 22.
    const auto at = [](double seconds, int row, int y) {
        return QPoint(labels + static_cast<int>(seconds / 10 * width), 22 + row * 26 + y);
    };
    const auto colourAt = [&](double seconds, int row, int y) { return picture.pixelColor(at(seconds, row, y)); };
    EXPECT_EQ(playStateColour(PlayState{0}), colourAt(0.5, 0, 15));
    EXPECT_EQ(playStateColour(PlayState{3}), colourAt(2, 0, 15));
    EXPECT_EQ(playStateColour(PlayState{1}), colourAt(5.5, 0, 15)) << "a stall is no state";
    EXPECT_EQ(playStateColour(PlayState{6}), colourAt(9, 0, 15));
    EXPECT_NE(colourAt(5, 0, 15), colourAt(5, 0, 5)) << "the mark of a stall";
    EXPECT_NE(colourAt(7, 0, 15), colourAt(7, 0, 5)) << "the mark of an error";
    EXPECT_NE(colourAt(5, 0, 5), colourAt(7, 0, 5)) << "they differ";
    EXPECT_EQ(playStateColour(PlayState{4}), colourAt(6, 1, 15));
    EXPECT_EQ(colourAt(1.5, 2, 15), colourAt(1.5, 1, 15)) << "object 2 is not there yet, nor is object 3";
    EXPECT_EQ(colourAt(1.5, 2, 15), colourAt(9, 1, 15)) << "object 2 is gone";
    const auto tip = [&](const QPoint& place) {
        QHelpEvent event(QEvent::ToolTip, place, bands.mapToGlobal(place));
        QApplication::sendEvent(&bands, &event);
        return QToolTip::text().toStdString();
    };
    EXPECT_EQ("playing since 3.000 s", tip(at(4, 0, 15)));
    EXPECT_EQ("error 5: the content is not available (HTTP 404), http://server/no.mp4", tip(at(7, 0, 15)));
    EXPECT_EQ("buffering since 4.000 s", tip(at(6, 1, 15)));
}

TEST(TimelinePanel, ListsTheObjectsThatAreThere) {
    ObjectTable table;
    table.show();
    const Command source{MEDIA_FUNCTION_SET_SOURCE, "http://server/films/one.mp4", {}, 0, 1};
    table.append({stateAt(1, 1, 4), entry(1, source), entry(1, Buffer{40}), stateAt(1, 2, 1)});
    ASSERT_EQ(2, table.rowCount());
    const auto rowOf = [&table](const char* text) {
        const auto found = table.findItems(QLatin1String(text), Qt::MatchExactly);
        return found.isEmpty() ? -1 : found.constFirst()->row();
    };
    for (const char* text : {"1", "4 buffering", "40 %", "one.mp4"}) {
        EXPECT_EQ(0, rowOf(text)) << text;
    }
    EXPECT_EQ(1, rowOf("1 playing"));
    std::vector<int> chosen;
    QObject::connect(&table, &ObjectTable::chosen, [&chosen](int object) { chosen.push_back(object); });
    table.setCurrentCell(1, 0);
    QTest::keyClick(&table, Qt::Key_Return);
    QTest::keyClick(&table, Qt::Key_Return);
    EXPECT_EQ((std::vector<int>{2, 0}), chosen) << "once more shows all";
    table.append({entry(1, Gone())});
    ASSERT_EQ(1, table.rowCount());
    EXPECT_EQ(0, rowOf("2"));
}

TEST(TimelinePanel, IsDarkAroundItsParts) {
    TimelinePanel panel(0);
    panel.resize(panel.sizeHint());
    EXPECT_EQ(QColor(0x1d, 0x20, 0x26), panel.grab().toImage().pixelColor(2, 2));
}

TEST(TimelinePanel, KeepsTheChosenEntryInSight) {
    TimelinePanel panel(0);
    panel.resize(panel.sizeHint());
    panel.show();
    auto* list = panel.findChild<QTableView*>(QStringLiteral("entries"));
    const auto append = [&panel] {
        panel.append(TimelineEntries(200, entry(1, call("stop"))));
        QApplication::processEvents();
    };
    const auto sees = [list](int row) {
        return list->viewport()->rect().intersects(list->visualRect(list->model()->index(row, TimelineModel::TEXT)));
    };
    const auto up = [list] {
        QTest::keyClick(list, Qt::Key_Up);
        QApplication::processEvents();
    };
    append();
    EXPECT_TRUE(sees(199)) << "the newest one, as long as none is chosen";
    list->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(199, list->currentIndex().row());
    up();
    EXPECT_EQ(198, list->currentIndex().row());
    append();
    EXPECT_TRUE(sees(198));
    list->scrollToBottom();
    append();
    EXPECT_TRUE(sees(599)) << "at the end it follows again";
    up();
    EXPECT_EQ(197, list->currentIndex().row());
    EXPECT_TRUE(sees(197)) << "the keys go to what is chosen";
}

TEST(TimelinePanel, ShowsWhatIsAskedFor) {
    TimelinePanel panel(0);
    panel.append({entry(1, Created{"video/mp4"}), entry(1, Call{"play", {1.0}, true}), entry(2, Created{"audio/mp4"}),
                  entry(2, Command{MEDIA_FUNCTION_PLAY, "", {}, 0, 1}), entry(2, Error{5, "", ""})});
    const auto* list = panel.findChild<QTableView*>(QStringLiteral("entries"));
    const auto rows = [list] { return list->model()->rowCount(); };
    EXPECT_EQ(5, rows());
    const auto clickAllKinds = [&panel] {
        for (auto* button : panel.findChildren<QToolButton*>()) {
            if (button->isCheckable()) {
                button->click();
            }
        }
    };
    clickAllKinds();
    EXPECT_EQ(1, rows()) << "errors are always shown";
    clickAllKinds();
    panel.findChild<QLineEdit*>()->setText(QStringLiteral("pLAY"));
    EXPECT_EQ(2, rows());
    emit panel.findChild<ObjectTable*>()->chosen(1);
    EXPECT_EQ(1, rows());
    const_cast<QTableView*>(list)->selectRow(0);
    EXPECT_TRUE(panel.findChild<QPlainTextEdit*>()->toPlainText().contains(QStringLiteral("\"name\": \"play\"")));
    panel.findChild<QLineEdit*>()->clear();
    for (int i = 0; i < 3; ++i) {
        panel.append(TimelineEntries(10'000, entry(1, call("stop"))));
    }
    panel.append(TimelineEntries(1, entry(1, call("last"))));
    EXPECT_EQ(QStringLiteral("last() -> undefined"),
              list->model()->index(rows() - 1, TimelineModel::TEXT).data().toString());
    EXPECT_LE(rows(), 20'000);
}

} // namespace
