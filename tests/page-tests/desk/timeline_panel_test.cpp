// The timeline's panel: what its filters show, and an entry whole.
#include "TimelinePanel.h"

#include <QApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTableView>
#include <QToolButton>
#include <gtest/gtest.h>

namespace {

using Kind = TimelineEntry::Kind;

TimelineEntry entry(Kind kind, int object, const char* text) {
    TimelineEntry made;
    made.kind = kind;
    made.object = object;
    made.text = QString::fromLatin1(text);
    made.fields[QStringLiteral("name")] = made.text;
    return made;
}

TEST(TimelinePanel, ShowsWhatIsAskedFor) {
    TimelinePanel panel(0);
    panel.append({entry(Kind::CREATED, 1, "video/mp4"), entry(Kind::CALL, 1, "play(1)"),
                  entry(Kind::CREATED, 2, "audio/mp4"), entry(Kind::COMMAND, 2, "Play"), entry(Kind::ERROR, 2, "5")});
    const auto* list = panel.findChild<QTableView*>(QStringLiteral("entries"));
    const auto rows = [list] { return list->model()->rowCount(); };
    EXPECT_EQ(5, rows());
    for (auto* button : panel.findChildren<QToolButton*>()) {
        if (button->isCheckable()) {
            button->click();
        }
    }
    EXPECT_EQ(1, rows()) << "errors are always shown";
    for (auto* button : panel.findChildren<QToolButton*>()) {
        if (button->isCheckable()) {
            button->click();
        }
    }
    panel.findChild<QLineEdit*>()->setText(QStringLiteral("pLAY"));
    EXPECT_EQ(2, rows());
    emit panel.findChild<ObjectTable*>()->chosen(1);
    EXPECT_EQ(1, rows());
    const_cast<QTableView*>(list)->selectRow(0);
    EXPECT_TRUE(panel.findChild<QPlainTextEdit*>()->toPlainText().contains(QStringLiteral("\"name\": \"play(1)\"")));
    panel.findChild<QLineEdit*>()->clear();
    for (int i = 0; i < 3; ++i) {
        panel.append(TimelineEntries(10'000, entry(Kind::CALL, 1, "stop()")));
    }
    panel.append(TimelineEntries(1, entry(Kind::CALL, 1, "last")));
    EXPECT_EQ(QStringLiteral("last"), list->model()->index(rows() - 1, TimelineModel::TEXT).data().toString());
    EXPECT_LE(rows(), 20'000);
}

} // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
