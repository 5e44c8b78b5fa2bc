#include "remote/RemoteKeys.h"

#include <algorithm>
#include <numeric>

namespace tv {

namespace {

constexpr RemoteButton noButton{0, 0, 0, nullptr};
constexpr int none = Qt::Key_unknown;
constexpr const char* mediaKeys = "the keyboard's own media keys";

// In the order of the help.
constexpr std::array<RemoteKey, remoteKeyCount> keys = {{
    {"LEFT", 37, KEYSET_NAVIGATION, Qt::Key_Left, "", {Qt::Key_Left}, "arrow keys", {7, 0, 3, "\u25c0"}},
    {"UP", 38, KEYSET_NAVIGATION, Qt::Key_Up, "", {Qt::Key_Up}, "arrow keys", {6, 1, 3, "\u25b2"}},
    {"RIGHT", 39, KEYSET_NAVIGATION, Qt::Key_Right, "", {Qt::Key_Right}, "arrow keys", {7, 2, 3, "\u25b6"}},
    {"DOWN", 40, KEYSET_NAVIGATION, Qt::Key_Down, "", {Qt::Key_Down}, "arrow keys", {8, 1, 3, "\u25bc"}},
    {"ENTER",
     13,
     KEYSET_NAVIGATION,
     Qt::Key_Return,
     "\r",
     {Qt::Key_Return, Qt::Key_Enter},
     "Enter",
     {7, 1, 3, "OK", "#5b6472"}},
    {"BACK",
     461,
     KEYSET_NAVIGATION,
     none,
     "",
     {Qt::Key_Backspace, Qt::Key_Escape, Qt::Key_Back},
     "Backspace or Escape",
     {8, 0, 3, "BACK"}},
    {"0", 48, KEYSET_NUMERIC, Qt::Key_0, "0", {Qt::Key_0}, "0 to 9", {4, 1, 3, "0"}},
    {"1", 49, KEYSET_NUMERIC, Qt::Key_1, "1", {Qt::Key_1}, "0 to 9", {1, 0, 3, "1"}},
    {"2", 50, KEYSET_NUMERIC, Qt::Key_2, "2", {Qt::Key_2}, "0 to 9", {1, 1, 3, "2"}},
    {"3", 51, KEYSET_NUMERIC, Qt::Key_3, "3", {Qt::Key_3}, "0 to 9", {1, 2, 3, "3"}},
    {"4", 52, KEYSET_NUMERIC, Qt::Key_4, "4", {Qt::Key_4}, "0 to 9", {2, 0, 3, "4"}},
    {"5", 53, KEYSET_NUMERIC, Qt::Key_5, "5", {Qt::Key_5}, "0 to 9", {2, 1, 3, "5"}},
    {"6", 54, KEYSET_NUMERIC, Qt::Key_6, "6", {Qt::Key_6}, "0 to 9", {2, 2, 3, "6"}},
    {"7", 55, KEYSET_NUMERIC, Qt::Key_7, "7", {Qt::Key_7}, "0 to 9", {3, 0, 3, "7"}},
    {"8", 56, KEYSET_NUMERIC, Qt::Key_8, "8", {Qt::Key_8}, "0 to 9", {3, 1, 3, "8"}},
    {"9", 57, KEYSET_NUMERIC, Qt::Key_9, "9", {Qt::Key_9}, "0 to 9", {3, 2, 3, "9"}},
    {"RED", 403, KEYSET_RED, none, "", {Qt::Key_F2, Qt::Key_R}, "F2 or r", {10, 0, 4, "", "#c62828"}},
    {"GREEN", 404, KEYSET_GREEN, none, "", {Qt::Key_F3, Qt::Key_G}, "F3 or g", {10, 1, 4, "", "#2e7d32"}},
    {"YELLOW", 405, KEYSET_YELLOW, none, "", {Qt::Key_F4, Qt::Key_Y}, "F4 or y", {10, 2, 4, "", "#e0b400"}},
    {"BLUE", 406, KEYSET_BLUE, none, "", {Qt::Key_F5, Qt::Key_B}, "F5 or b", {10, 3, 4, "", "#1f57c3"}},
    {"PLAY", 415, KEYSET_VCR, none, "", {Qt::Key_P, Qt::Key_MediaPlay}, "p", {12, 1, 3, "\u25b6"}},
    {"PAUSE", 19, KEYSET_VCR, none, "", {Qt::Key_Space, Qt::Key_MediaPause}, "Space", {13, 1, 3, "\u275a\u275a"}},
    {"STOP", 413, KEYSET_VCR, none, "", {Qt::Key_S, Qt::Key_MediaStop}, "s", {13, 0, 3, "\u25a0"}},
    {"REWIND", 412, KEYSET_VCR, none, "", {Qt::Key_Comma, Qt::Key_AudioRewind}, "comma", {12, 0, 3, "\u25c0\u25c0"}},
    {"FAST_FWD",
     417,
     KEYSET_VCR,
     none,
     "",
     {Qt::Key_Period, Qt::Key_AudioForward},
     "full stop",
     {12, 2, 3, "\u25b6\u25b6"}},
    {"PLAY_PAUSE", 402, KEYSET_VCR, none, "", {Qt::Key_MediaTogglePlayPause}, mediaKeys, {13, 2, 3, "\u25b6\u275a"}},
    {"TRACK_PREV", 424, KEYSET_VCR, none, "", {Qt::Key_MediaPrevious}, mediaKeys, noButton},
    {"TRACK_NEXT", 425, KEYSET_VCR, none, "", {Qt::Key_MediaNext}, mediaKeys, noButton},
    {"INFO", 457, KEYSET_INFO, none, "", {Qt::Key_I}, "i", {8, 2, 3, "INFO"}},
    {"TELETEXT", 459, KEYSET_OTHER, none, "", {Qt::Key_T}, "t", {4, 0, 3, "TEXT"}},
    {"SUBTITLE", 460, KEYSET_OTHER, none, "", {Qt::Key_U}, "u", {4, 2, 3, "SUBT"}},
}};

/** Codes that pages compare with, of keys that this remote control does not have. */
const struct {
    const char* name;
    int code;
} furtherConstants[] = {
    {"PAGE_UP", 33},      {"PAGE_DOWN", 34},   {"END", 35},           {"HOME", 36},
    {"RECORD", 416},      {"CHANNEL_UP", 427}, {"CHANNEL_DOWN", 428}, {"VOLUME_UP", 447},
    {"VOLUME_DOWN", 448}, {"MUTE", 449},       {"GUIDE", 458},        {"MENU", 462},
};

/** @return the first key for which the condition holds; null when there is none */
template <typename Condition> const RemoteKey* findKey(const Condition& condition) {
    const auto* found = std::find_if(keys.begin(), keys.end(), condition);
    return found != keys.end() ? found : nullptr;
}

} // namespace

const std::array<RemoteKey, remoteKeyCount>& remoteKeys() {
    return keys;
}

const RemoteKey* remoteKeyNamed(const QString& name) {
    const QString plain = name.startsWith(QLatin1String("VK_"), Qt::CaseInsensitive) ? name.mid(3) : name;
    return findKey(
        [&plain](const RemoteKey& key) { return plain.compare(QLatin1String(key.name), Qt::CaseInsensitive) == 0; });
}

const RemoteKey* remoteKeyOfCode(int code) {
    return findKey([code](const RemoteKey& key) { return key.code == code; });
}

const RemoteKey* remoteKeyOfKeyboard(int qtKey) {
    return findKey([qtKey](const RemoteKey& key) {
        return qtKey != 0 &&
               std::find(key.keyboardKeys.begin(), key.keyboardKeys.end(), qtKey) != key.keyboardKeys.end();
    });
}

int remoteKeysets() {
    return std::accumulate(keys.begin(), keys.end(), 0,
                           [](int keysets, const RemoteKey& key) { return keysets | key.keyset; });
}

QString remoteKeyConstantsScript() {
    QString script = QStringLiteral("window.KeyEvent = window.KeyEvent || {};");
    const auto add = [&script](const QString& name, int code) {
        script += QStringLiteral("window.VK_%1 = KeyEvent.VK_%1 = %2;").arg(name).arg(code);
    };
    for (const RemoteKey& key : keys) {
        add(QString::fromLatin1(key.name), key.code);
    }
    for (const auto& constant : furtherConstants) {
        add(QString::fromLatin1(constant.name), constant.code);
    }
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
        add(QString(QLatin1Char(letter)), letter);
    }
    return script;
}

} // namespace tv
