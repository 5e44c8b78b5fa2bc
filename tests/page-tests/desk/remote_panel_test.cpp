// The remote control on the screen, clicked with the mouse, and the keyboard as one.
#include "KeyboardRemote.h"
#include "RemoteKeys.h"
#include "RemotePanel.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QPushButton>
#include <gtest/gtest.h>

namespace {

struct Event {
    std::string key;
    bool pressed;
    bool isRepeat;

    bool operator==(const Event& other) const {
        return key == other.key && pressed == other.pressed && isRepeat == other.isRepeat;
    }
};

class RemotePanelTest : public testing::Test {
protected:
    RemotePanelTest() {
        QObject::connect(&m_panel, &RemotePanel::remoteKey, [this](const RemoteKey& key, bool pressed, bool isRepeat) {
            m_events.push_back({key.name, pressed, isRepeat});
        });
        m_panel.show();
    }

    void mouse(QEvent::Type type, const char* key) {
        auto* button = m_panel.findChild<QPushButton*>(QString::fromLatin1(key));
        ASSERT_TRUE(button) << key;
        const Qt::MouseButtons buttons = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
        QMouseEvent event(type, button->rect().center(), Qt::LeftButton, buttons, Qt::NoModifier);
        QApplication::sendEvent(button, &event);
    }

    RemotePanel m_panel{true};
    std::vector<Event> m_events;
};

TEST_F(RemotePanelTest, AClickIsAPressAndARelease) {
    for (const char* key : {"ENTER", "RED", "FAST_FWD"}) {
        m_events.clear();
        mouse(QEvent::MouseButtonPress, key);
        mouse(QEvent::MouseButtonRelease, key);
        EXPECT_EQ(m_events, (std::vector<Event>{{key, true, false}, {key, false, false}}));
    }
}

/** Lets time pass until there are so many events, or for 20 seconds. */
void waitFor(const std::vector<Event>& events, size_t count) {
    QElapsedTimer patience;
    patience.start();
    while (events.size() < count && patience.elapsed() < 20'000) {
        QApplication::processEvents(QEventLoop::AllEvents, 50);
    }
}

TEST_F(RemotePanelTest, AHeldButtonRepeatsUntilItIsReleased) {
    mouse(QEvent::MouseButtonPress, "DOWN");
    waitFor(m_events, 4);
    mouse(QEvent::MouseButtonRelease, "DOWN");
    ASSERT_GE(m_events.size(), 5U);
    EXPECT_EQ(m_events.front(), (Event{"DOWN", true, false}));
    EXPECT_EQ(m_events[1], (Event{"DOWN", true, true}));
    EXPECT_EQ(m_events.back(), (Event{"DOWN", false, false}));
}

TEST(KeyboardRemoteTest, PassesOnOnlyWhatIsMeantForThePage) {
    KeyboardRemote keyboard;
    std::vector<Event> events;
    QObject::connect(&keyboard, &KeyboardRemote::remoteKey,
                     [&events](const RemoteKey& key, bool pressed, bool isRepeat) {
                         events.push_back({key.name, pressed, isRepeat});
                     });
    const auto press = [&](int key, Qt::KeyboardModifiers modifiers, bool isRepeat = false) {
        keyboard.press(QKeyEvent(QEvent::KeyPress, key, modifiers, QString(), isRepeat));
    };
    const auto release = [&](int key, bool isRepeat = false) {
        keyboard.release(QKeyEvent(QEvent::KeyRelease, key, Qt::NoModifier, QString(), isRepeat));
    };
    release(Qt::Key_Return); // it has chosen something in a menu
    press(Qt::Key_Left, Qt::AltModifier);
    release(Qt::Key_Left);
    EXPECT_TRUE(events.empty());

    press(Qt::Key_Left, Qt::NoModifier);
    for (const bool isKnown : {true, false}) { // as the display repeats it; Qt does not always recognise that
        release(Qt::Key_Left, isKnown);
        press(Qt::Key_Left, Qt::NoModifier, isKnown);
    }
    EXPECT_EQ((std::vector<Event>{{"LEFT", true, false}}), events);
    waitFor(events, 3);
    ASSERT_GE(events.size(), 3U) << "it repeats as on a remote control";
    EXPECT_EQ((Event{"LEFT", true, true}), events[2]);

    events.clear();
    press(Qt::Key_Right, Qt::NoModifier);
    release(Qt::Key_Left); // which was pressed before
    release(Qt::Key_Right);
    waitFor(events, 3);
    release(Qt::Key_Right);
    press(Qt::Key_R, Qt::NoModifier);
    keyboard.leave(); // the release will be another window's
    release(Qt::Key_R);
    EXPECT_EQ((std::vector<Event>{{"LEFT", false, false},
                                  {"RIGHT", true, false},
                                  {"RIGHT", false, false},
                                  {"RED", true, false},
                                  {"RED", false, false}}),
              events);
}

} // namespace
