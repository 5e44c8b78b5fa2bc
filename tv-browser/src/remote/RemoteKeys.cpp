#include "remote/RemoteKeys.h"

#include <QStringList>
#include <algorithm>
#include <iterator>
#include <numeric>

namespace tv {

namespace {

const RemoteKey keys[] = {
    {"LEFT", 37, KEYSET_NAVIGATION, Qt::Key_Left, ""},
    {"UP", 38, KEYSET_NAVIGATION, Qt::Key_Up, ""},
    {"RIGHT", 39, KEYSET_NAVIGATION, Qt::Key_Right, ""},
    {"DOWN", 40, KEYSET_NAVIGATION, Qt::Key_Down, ""},
    {"ENTER", 13, KEYSET_NAVIGATION, Qt::Key_Return, "\r"},
    {"BACK", 461, KEYSET_NAVIGATION, Qt::Key_unknown, ""},
    {"0", 48, KEYSET_NUMERIC, Qt::Key_0, "0"},
    {"1", 49, KEYSET_NUMERIC, Qt::Key_1, "1"},
    {"2", 50, KEYSET_NUMERIC, Qt::Key_2, "2"},
    {"3", 51, KEYSET_NUMERIC, Qt::Key_3, "3"},
    {"4", 52, KEYSET_NUMERIC, Qt::Key_4, "4"},
    {"5", 53, KEYSET_NUMERIC, Qt::Key_5, "5"},
    {"6", 54, KEYSET_NUMERIC, Qt::Key_6, "6"},
    {"7", 55, KEYSET_NUMERIC, Qt::Key_7, "7"},
    {"8", 56, KEYSET_NUMERIC, Qt::Key_8, "8"},
    {"9", 57, KEYSET_NUMERIC, Qt::Key_9, "9"},
    {"RED", 403, KEYSET_RED, Qt::Key_unknown, ""},
    {"GREEN", 404, KEYSET_GREEN, Qt::Key_unknown, ""},
    {"YELLOW", 405, KEYSET_YELLOW, Qt::Key_unknown, ""},
    {"BLUE", 406, KEYSET_BLUE, Qt::Key_unknown, ""},
    {"PLAY", 415, KEYSET_VCR, Qt::Key_unknown, ""},
    {"PAUSE", 19, KEYSET_VCR, Qt::Key_unknown, ""},
    {"STOP", 413, KEYSET_VCR, Qt::Key_unknown, ""},
    {"REWIND", 412, KEYSET_VCR, Qt::Key_unknown, ""},
    {"FAST_FWD", 417, KEYSET_VCR, Qt::Key_unknown, ""},
    {"PLAY_PAUSE", 402, KEYSET_VCR, Qt::Key_unknown, ""},
    {"TRACK_PREV", 424, KEYSET_VCR, Qt::Key_unknown, ""},
    {"TRACK_NEXT", 425, KEYSET_VCR, Qt::Key_unknown, ""},
    {"INFO", 457, KEYSET_INFO, Qt::Key_unknown, ""},
    {"TELETEXT", 459, KEYSET_OTHER, Qt::Key_unknown, ""},
    {"SUBTITLE", 460, KEYSET_OTHER, Qt::Key_unknown, ""},
};

/** Codes that pages compare with, of keys that this remote control does not have. */
const struct {
    const char* name;
    int code;
} furtherConstants[] = {
    {"PAGE_UP", 33},      {"PAGE_DOWN", 34},   {"END", 35},           {"HOME", 36},
    {"RECORD", 416},      {"CHANNEL_UP", 427}, {"CHANNEL_DOWN", 428}, {"VOLUME_UP", 447},
    {"VOLUME_DOWN", 448}, {"MUTE", 449},       {"GUIDE", 458},        {"MENU", 462},
};

const struct {
    int qtKey;
    const char* remoteKey;
} keyboard[] = {
    {Qt::Key_Left, "LEFT"},
    {Qt::Key_Up, "UP"},
    {Qt::Key_Right, "RIGHT"},
    {Qt::Key_Down, "DOWN"},
    {Qt::Key_Return, "ENTER"},
    {Qt::Key_Enter, "ENTER"},
    {Qt::Key_Backspace, "BACK"},
    {Qt::Key_Escape, "BACK"},
    {Qt::Key_Back, "BACK"},
    {Qt::Key_0, "0"},
    {Qt::Key_1, "1"},
    {Qt::Key_2, "2"},
    {Qt::Key_3, "3"},
    {Qt::Key_4, "4"},
    {Qt::Key_5, "5"},
    {Qt::Key_6, "6"},
    {Qt::Key_7, "7"},
    {Qt::Key_8, "8"},
    {Qt::Key_9, "9"},
    {Qt::Key_F2, "RED"},
    {Qt::Key_R, "RED"},
    {Qt::Key_F3, "GREEN"},
    {Qt::Key_G, "GREEN"},
    {Qt::Key_F4, "YELLOW"},
    {Qt::Key_Y, "YELLOW"},
    {Qt::Key_F5, "BLUE"},
    {Qt::Key_B, "BLUE"},
    {Qt::Key_P, "PLAY"},
    {Qt::Key_MediaPlay, "PLAY"},
    {Qt::Key_Space, "PAUSE"},
    {Qt::Key_MediaPause, "PAUSE"},
    {Qt::Key_S, "STOP"},
    {Qt::Key_MediaStop, "STOP"},
    {Qt::Key_Comma, "REWIND"},
    {Qt::Key_AudioRewind, "REWIND"},
    {Qt::Key_Period, "FAST_FWD"},
    {Qt::Key_AudioForward, "FAST_FWD"},
    {Qt::Key_MediaTogglePlayPause, "PLAY_PAUSE"},
    {Qt::Key_MediaPrevious, "TRACK_PREV"},
    {Qt::Key_MediaNext, "TRACK_NEXT"},
    {Qt::Key_I, "INFO"},
    {Qt::Key_T, "TELETEXT"},
    {Qt::Key_U, "SUBTITLE"},
};

} // namespace

const RemoteKey* remoteKeyNamed(const QString& name) {
    const QString plain = name.startsWith(QLatin1String("VK_"), Qt::CaseInsensitive) ? name.mid(3) : name;
    const auto* found = std::find_if(std::begin(keys), std::end(keys), [&plain](const RemoteKey& key) {
        return plain.compare(QLatin1String(key.name), Qt::CaseInsensitive) == 0;
    });
    return found != std::end(keys) ? found : nullptr;
}

const RemoteKey* remoteKeyOfCode(int code) {
    const auto* found =
        std::find_if(std::begin(keys), std::end(keys), [code](const RemoteKey& key) { return key.code == code; });
    return found != std::end(keys) ? found : nullptr;
}

int remoteKeysets() {
    return std::accumulate(std::begin(keys), std::end(keys), 0,
                           [](int keysets, const RemoteKey& key) { return keysets | key.keyset; });
}

const RemoteKey* remoteKeyOfKeyboard(int qtKey) {
    const auto* found = std::find_if(std::begin(keyboard), std::end(keyboard),
                                     [qtKey](const auto& entry) { return entry.qtKey == qtKey; });
    return found != std::end(keyboard) ? remoteKeyNamed(QString::fromLatin1(found->remoteKey)) : nullptr;
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

std::optional<QList<RemoteKeyStep>> parseRemoteKeySteps(const QString& text, QString& wrong) {
    constexpr double tap = 0.05;
    constexpr double longest = 1e6;
    QList<RemoteKeyStep> steps;
    for (const QString& part : text.split(QLatin1Char(','))) {
        const QString name = part.section(QLatin1Char(':'), 0, 0).trimmed();
        const QString time = part.section(QLatin1Char(':'), 1);
        bool isTime = false;
        const double seconds = time.toDouble(&isTime);
        const RemoteKey* key = remoteKeyNamed(name);
        const DeskKey* deskKey = key ? nullptr : deskKeyNamed(name);
        const bool isPause = name.compare(QLatin1String("wait"), Qt::CaseInsensitive) == 0;
        if ((!key && !deskKey && !isPause) ||
            (isTime ? !(seconds >= 0 && seconds <= longest) : isPause || part.contains(QLatin1Char(':')))) {
            wrong = part.trimmed();
            return std::nullopt;
        }
        steps.append({key, deskKey, isTime ? seconds : tap});
    }
    return steps;
}

} // namespace tv
