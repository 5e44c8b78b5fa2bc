// The television's window, operated by keyboard only: its picture at all sizes, address line, notices, menus, panels.
#include "app/Television.h"
#include "base/MonotonicTime.h"
#include "desk/AddressLine.h"
#include "desk/FaultPanel.h"
#include "desk/KeyboardHelp.h"
#include "desk/ScreenNotice.h"
#include "desk/ScreenView.h"
#include "timeline/panel/TimelinePanel.h"

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

using namespace tv;

namespace {

constexpr int patienceMs = 20'000;
const QPoint middle(640, 360);
const QColor filmPlays(Qt::cyan);
const QColor filmFailed(Qt::magenta);
const QString testPage(PAGES "/window.html");

/** What a person in front of the television sees and does. */
class Person {
public:
    explicit Person(TvWindow& window) : m_window(window) {}

    template <class Part> Part& part() const { return *m_window.findChild<Part*>(); }
    QString notice() const { return part<ScreenNotice>().isVisible() ? part<ScreenNotice>().text() : QString(); }

    /** Where keys go now. This platform leaves the keyboard with a menu that has gone, which a window manager takes. */
    QWidget* target() const {
        if (QWidget* popup = QApplication::activePopupWidget()) {
            return popup;
        }
        const auto hasKeyboard = [this] {
            if (!QApplication::focusWidget()) {
                m_window.activateWindow();
            }
            return QApplication::focusWidget() != nullptr;
        };
        EXPECT_TRUE(QTest::qWaitFor(hasKeyboard, patienceMs));
        return QApplication::focusWidget();
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
        QTest::keyClick(target(), key, modifiers);
    }

    void enter(const QString& text) const {
        QTest::keyClicks(target(), text);
        press(Qt::Key_Return);
    }

    /** Chooses in the menu, and in the menus that it opens. */
    void choose(const QStringList& titles) const {
        press(Qt::Key_F10);
        for (const QString& title : titles) {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_TRUE(menu);
            for (int i = 0; i < menu->actions().size() && menu->activeAction()->text() != title; ++i) {
                press(Qt::Key_Down);
            }
            ASSERT_EQ(title, menu->activeAction()->text());
            press(Qt::Key_Return);
        }
    }

    /** @return the colour in the window where the television's picture has that point, in the right shape */
    QColor colourAt(const QPointF& point) const {
        const QSizeF size = m_window.screenView().size();
        const QSizeF shape = QSizeF(1280, 720).scaled(size, Qt::KeepAspectRatio);
        const QPointF place =
            point * (shape.width() / 1280) + QPointF(size.width() - shape.width(), size.height() - shape.height()) / 2;
        return m_window.screenView().grab().toImage().pixelColor(place.toPoint());
    }

    bool sees(const QColor& colour) const {
        return QTest::qWaitFor([&] { return colourAt(middle) == colour; }, patienceMs);
    }

    bool isTold(const QString& text) const {
        return QTest::qWaitFor([&] { return notice().contains(text); }, patienceMs);
    }

    bool isToldNothing() const {
        return QTest::qWaitFor([&] { return notice().isEmpty(); }, patienceMs);
    }

private:
    TvWindow& m_window;
};

/** Switches the television on, with a person in front of it, who switches it off. */
void inFrontOf(const QString& page, const std::function<void(TvWindow&, Person&)>& act) {
    const auto parsed = parseCommandLine(
        {"tv-browser", "--mount", QString("shared=" PAGES "/.."), "--mount", QString("media=" MEDIA), page});
    ASSERT_TRUE(parsed) << parsed.reason().text.toStdString();
    Television television(*parsed, monotonicUs());
    QTimer::singleShot(0, &television, [&act] {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (auto* window = qobject_cast<TvWindow*>(widget)) {
                EXPECT_TRUE(QTest::qWaitForWindowActive(window, patienceMs));
                Person person(*window);
                act(*window, person);
            }
        }
        QCoreApplication::exit(7);
    });
    EXPECT_EQ(7, television.run("npavcontrol.so"));
}

TEST(Window, ShowsTheWholePictureAtAnySize) {
    inFrontOf(testPage, [](TvWindow& window, Person& person) {
        ASSERT_TRUE(person.sees(filmPlays));
        const auto showsAll = [&] {
            EXPECT_EQ(QColor(Qt::red), person.colourAt({10, 10}));
            EXPECT_EQ(QColor(Qt::green), person.colourAt({1270, 10}));
            EXPECT_EQ(QColor(Qt::blue), person.colourAt({10, 710}));
            EXPECT_EQ(QColor(Qt::yellow), person.colourAt({1270, 710}));
        };
        for (const QSize size : {QSize(1280, 720), QSize(640, 360), QSize(1000, 360), QSize(700, 780)}) {
            SCOPED_TRACE(testing::Message() << size.width() << 'x' << size.height());
            window.resize(size);
            EXPECT_EQ(size, window.screenView().size());
            showsAll();
            const QImage shown = window.screenView().grab().toImage();
            const bool isFilled = size.width() * 9 == size.height() * 16;
            EXPECT_EQ(isFilled ? QColor(Qt::red) : QColor(Qt::black), shown.pixelColor(2, 2));
            EXPECT_EQ(isFilled ? QColor(Qt::yellow) : QColor(Qt::black),
                      shown.pixelColor(size.width() - 3, size.height() - 3));
        }
        window.resize(640, 360);
        person.press(Qt::Key_F11);
        EXPECT_TRUE(window.isFullScreen());
        showsAll();
        person.press(Qt::Key_F11);
        EXPECT_FALSE(window.isFullScreen());
        EXPECT_EQ(QSize(640, 360), window.size());
    });
}

TEST(Window, GivesPanelsAndKeysRoomOnASmallScreen) {
    inFrontOf(testPage, [](TvWindow& window, Person& person) {
        window.resize(640, 360);
        person.press(Qt::Key_F1);
        EXPECT_TRUE(person.part<KeyboardHelp>().isVisible());
        EXPECT_TRUE(window.rect().contains(person.part<KeyboardHelp>().geometry()));
        person.press(Qt::Key_F1);
        EXPECT_FALSE(person.part<KeyboardHelp>().isVisible());
        for (const Qt::Key key : {Qt::Key_F9, Qt::Key_F6}) {
            person.press(key);
            EXPECT_LE(window.minimumSize().width(), 640);
            EXPECT_LE(window.minimumSize().height(), 360);
            EXPECT_GT(window.width(), 640);
            EXPECT_LE(window.width(), window.screen()->availableGeometry().width());
            QTest::keyClick(&window.screenView(), Qt::Key_Tab);
            EXPECT_FALSE(window.screenView().hasFocus()) << "the panel is reached by keyboard";
            person.press(Qt::Key_Escape);
            EXPECT_TRUE(window.screenView().hasFocus());
            person.press(key);
            EXPECT_EQ(QSize(640, 360), window.size());
        }
    });
}

TEST(Window, TellsOfAddressesThatAreNone) {
    inFrontOf(testPage, [](TvWindow& window, Person& person) {
        ASSERT_TRUE(person.sees(filmPlays));
        auto& line = person.part<AddressLine>();
        person.press(Qt::Key_L, Qt::ControlModifier);
        const QString address = line.text();
        EXPECT_TRUE(address.endsWith("/window.html"));
        person.enter("foo bar baz");
        EXPECT_TRUE(person.isTold("foo bar baz is neither"));
        EXPECT_TRUE(line.isVisible()) << "it is there to be corrected";
        EXPECT_EQ("foo bar baz", line.text());
        person.enter(address + "?plain");
        EXPECT_TRUE(person.sees(Qt::white));
        EXPECT_FALSE(line.isVisible());
        EXPECT_TRUE(person.isToldNothing()) << "the page is there";

        // A held key ends where the menu takes its release.
        QTest::keyPress(&window.screenView(), Qt::Key_Down);
        EXPECT_TRUE(person.sees(Qt::black));
        person.press(Qt::Key_F10);
        EXPECT_TRUE(person.sees(Qt::white));
        person.press(Qt::Key_Escape);

        person.press(Qt::Key_Left, Qt::AltModifier);
        EXPECT_TRUE(person.sees(filmPlays));
        person.press(Qt::Key_Right, Qt::AltModifier);
        EXPECT_TRUE(person.sees(Qt::white));
        person.press(Qt::Key_L, Qt::ControlModifier);
        person.enter(QString(address).replace("window", "missing"));
        EXPECT_TRUE(person.isTold("404"));
    });
}

TEST(Window, BreaksThingsFromItsMenus) {
    inFrontOf(testPage, [](TvWindow& window, Person& person) {
        ASSERT_TRUE(person.sees(filmPlays));
        const auto reload = [&] {
            window.screenView().setFocus();
            person.press(Qt::Key_F7);
        };
        person.choose({"Inject player report", "error 3: insufficient resources"});
        EXPECT_TRUE(person.isTold("error 3"));
        EXPECT_TRUE(person.sees(filmFailed));
        person.press(Qt::Key_Return);
        EXPECT_TRUE(person.sees(filmPlays));
        EXPECT_TRUE(person.isToldNothing()) << "the film plays";

        person.choose({"Network faults"});
        auto& panel = person.part<FaultPanel>();
        ASSERT_TRUE(panel.isVisible());
        const auto addRule = [&](const char* pattern, const char* fault) {
            panel.setFocus();
            auto* line = qobject_cast<QLineEdit*>(person.target());
            ASSERT_TRUE(line) << (person.target() ? person.target()->metaObject()->className() : "nobody");
            line->selectAll();
            QTest::keyClicks(person.target(), pattern);
            person.press(Qt::Key_Tab);
            person.press(Qt::Key_A, Qt::ControlModifier);
            QTest::keyClicks(person.target(), fault);
            person.press(Qt::Key_Tab);
            person.press(Qt::Key_Space);
        };
        const auto& rules = *panel.findChild<QListWidget*>();
        addRule("*.html", "soup");
        EXPECT_EQ(0, rules.count());
        addRule("*.mp4", "status:410");
        EXPECT_EQ(1, rules.count());
        reload();
        EXPECT_TRUE(person.isTold("HTTP 410"));
        EXPECT_TRUE(person.sees(filmFailed));
        addRule("*.html", "status:503");
        reload();
        EXPECT_TRUE(person.isTold("503 Service"));

        panel.setFocus();
        for (int i = 0; i < 5; ++i) {
            person.press(Qt::Key_Tab); // to "Remove all"
        }
        person.press(Qt::Key_Space);
        EXPECT_EQ(0, rules.count());
        reload();
        EXPECT_TRUE(person.sees(filmPlays));
        EXPECT_TRUE(person.isToldNothing());

        person.press(Qt::Key_L, Qt::ControlModifier);
        person.enter(person.part<AddressLine>().text() + "?plain");
        EXPECT_TRUE(person.sees(Qt::white));
        person.choose({"Inject player report", "error 3: insufficient resources"});
        EXPECT_TRUE(person.isTold("cannot inject"));
    });
}

} // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
