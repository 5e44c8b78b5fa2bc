#include "RemoteKeys.h"

#include <QStringList>
#include <algorithm>
#include <iterator>

namespace {

const RemoteKey keys[] = {
    {"LEFT", 37, Qt::Key_Left, ""},
    {"UP", 38, Qt::Key_Up, ""},
    {"RIGHT", 39, Qt::Key_Right, ""},
    {"DOWN", 40, Qt::Key_Down, ""},
    {"ENTER", 13, Qt::Key_Return, "\r"},
    {"BACK", 461, Qt::Key_unknown, ""},
    {"0", 48, Qt::Key_0, "0"},
    {"1", 49, Qt::Key_1, "1"},
    {"2", 50, Qt::Key_2, "2"},
    {"3", 51, Qt::Key_3, "3"},
    {"4", 52, Qt::Key_4, "4"},
    {"5", 53, Qt::Key_5, "5"},
    {"6", 54, Qt::Key_6, "6"},
    {"7", 55, Qt::Key_7, "7"},
    {"8", 56, Qt::Key_8, "8"},
    {"9", 57, Qt::Key_9, "9"},
    {"RED", 403, Qt::Key_unknown, ""},
    {"GREEN", 404, Qt::Key_unknown, ""},
    {"YELLOW", 405, Qt::Key_unknown, ""},
    {"BLUE", 406, Qt::Key_unknown, ""},
    {"PLAY", 415, Qt::Key_unknown, ""},
    {"PAUSE", 19, Qt::Key_unknown, ""},
    {"STOP", 413, Qt::Key_unknown, ""},
    {"REWIND", 412, Qt::Key_unknown, ""},
    {"FAST_FWD", 417, Qt::Key_unknown, ""},
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
};

} // namespace

const RemoteKey* remoteKeyNamed(const QString& name) {
    const QString plain = name.startsWith(QLatin1String("VK_"), Qt::CaseInsensitive) ? name.mid(3) : name;
    const auto* found = std::find_if(std::begin(keys), std::end(keys), [&plain](const RemoteKey& key) {
        return plain.compare(QLatin1String(key.name), Qt::CaseInsensitive) == 0;
    });
    return found != std::end(keys) ? found : nullptr;
}

const RemoteKey* remoteKeyOfKeyboard(int qtKey) {
    const auto* found = std::find_if(std::begin(keyboard), std::end(keyboard),
                                     [qtKey](const auto& entry) { return entry.qtKey == qtKey; });
    return found != std::end(keyboard) ? remoteKeyNamed(QString::fromLatin1(found->remoteKey)) : nullptr;
}

QString remoteKeyConstantsScript() {
    QString script = QStringLiteral("window.KeyEvent = window.KeyEvent || {};");
    for (const RemoteKey& key : keys) {
        script += QStringLiteral("window.VK_%1 = KeyEvent.VK_%1 = %2;").arg(QLatin1String(key.name)).arg(key.code);
    }
    return script;
}

std::optional<QList<RemoteKeyStep>> parseRemoteKeySteps(const QString& text, QString& wrong) {
    static const QString waitPrefix = QStringLiteral("wait:");
    QList<RemoteKeyStep> steps;
    for (const QString& part : text.split(QLatin1Char(','))) {
        const QString name = part.trimmed();
        if (name.startsWith(waitPrefix, Qt::CaseInsensitive)) {
            bool isNumber = false;
            const double seconds = name.mid(waitPrefix.size()).toDouble(&isNumber);
            if (isNumber && seconds >= 0) {
                steps.append({nullptr, seconds});
                continue;
            }
        } else if (const RemoteKey* key = remoteKeyNamed(name)) {
            steps.append({key, 0});
            continue;
        }
        wrong = name;
        return std::nullopt;
    }
    return steps;
}
