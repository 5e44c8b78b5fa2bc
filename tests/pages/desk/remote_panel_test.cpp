// The remote control on the screen, clicked with the mouse, and the keyboard as one.
#include "desk/RemotePanel.h"
#include "remote/KeyboardRemote.h"
#include "remote/RemoteKeys.h"

#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

using namespace tv;

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

    QPushButton* button(const char* key) { return m_panel.findChild<QPushButton*>(QString::fromLatin1(key)); }

    RemotePanel m_panel{true};
    std::vector<Event> m_events;
};

TEST_F(RemotePanelTest, IsDarkAroundItsButtons) {
    EXPECT_EQ(QColor(0x1d, 0x20, 0x26), m_panel.grab().toImage().pixelColor(2, 2));
}

TEST_F(RemotePanelTest, AClickIsAPressAndARelease) {
    for (const char* key : {"ENTER", "RED", "FAST_FWD"}) {
        m_events.clear();
        ASSERT_TRUE(button(key)) << key;
        QTest::mouseClick(button(key), Qt::LeftButton);
        EXPECT_EQ(m_events, (std::vector<Event>{{key, true, false}, {key, false, false}}));
    }
}

bool come(const std::vector<Event>& events, size_t count) {
    return QTest::qWaitFor([&] { return events.size() >= count; }, 20'000);
}

TEST_F(RemotePanelTest, AHeldButtonRepeatsUntilItIsReleased) {
    QTest::mousePress(button("DOWN"), Qt::LeftButton);
    ASSERT_TRUE(come(m_events, 4));
    QTest::mouseRelease(button("DOWN"), Qt::LeftButton);
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
    ASSERT_TRUE(come(events, 3)) << "it repeats as on a remote control";
    EXPECT_EQ((Event{"LEFT", true, true}), events[2]);

    events.clear();
    press(Qt::Key_Right, Qt::NoModifier);
    release(Qt::Key_Left); // which was pressed before
    release(Qt::Key_Right);
    EXPECT_TRUE(come(events, 3));
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
