// The file of --timeline against its documentation: every line has the form, and together they report the story.
#include "media_state.h"
#include "timeline/PlaybackTracker.h"

#include <QFile>
#include <QHash>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tv;

namespace {

/// The fields of each kind as docs/timeline.md has them: name, type, whether it may be missing.
struct Field {
    QString name;
    QString type;
    bool isOptional;
};

QHash<QString, QList<Field>> documentedKinds() {
    QFile file(QStringLiteral(DOCUMENTS "/timeline.md"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    static const QRegularExpression row(QStringLiteral("^\\| `([a-z-]+)` \\|( | `[^|]*)\\|[^|]+\\|$"));
    static const QRegularExpression field(QStringLiteral("`([a-z]+)`(\\?)? (text|number|bool)"));
    QHash<QString, QList<Field>> kinds;
    while (!file.atEnd()) {
        const auto found = row.match(QString::fromUtf8(file.readLine()).trimmed());
        auto fields = field.globalMatch(found.captured(2));
        while (fields.hasNext()) {
            const auto one = fields.next();
            kinds[found.captured(1)].append({one.captured(1), one.captured(3), !one.captured(2).isEmpty()});
        }
        if (found.hasMatch()) {
            kinds[found.captured(1)] +=
                {{"time", "number", false}, {"kind", "text", false}, {"object", "number", false}};
            kinds[found.captured(1)].append({"player", "number", true});
        }
    }
    return kinds;
}

QString typeName(const QJsonValue& value) {
    return value.isString() ? "text" : value.isDouble() ? "number" : value.isBool() ? "bool" : "other";
}

int browse(const QStringList& arguments) {
    QProcess browser;
    browser.setProcessChannelMode(QProcess::ForwardedChannels);
    browser.start(TV_BROWSER, QStringList("--headless") + arguments);
    browser.waitForFinished(60'000);
    return browser.exitCode();
}

TEST(Timeline, TellsTheStoryInTheDocumentedForm) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("timeline.jsonl");
    ASSERT_EQ(0, browse({"--verdict", "--exit-after", "40", "--timeline", path, "--keys",
                         "wait:1,RIGHT,wait:3,RIGHT,wait:9,RIGHT", "--fault", "*.ts=status:404", "--mount",
                         QString("shared=" PAGES "/.."), "--mount", QString("media=" MEDIA),
                         QString(PAGES "/timeline.html")}));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const auto kinds = documentedKinds();
    ASSERT_EQ(19, kinds.size());
    QStringList story;
    QStringList requests;
    double last = 0;
    while (!file.atEnd()) {
        const QByteArray line = file.readLine();
        SCOPED_TRACE(line.toStdString());
        const QJsonObject entry = QJsonDocument::fromJson(line).object();
        const QString kind = entry["kind"].toString();
        ASSERT_TRUE(kinds.contains(kind));
        QStringList known;
        for (const Field& field : kinds[kind]) {
            known.append(field.name);
            EXPECT_TRUE(field.isOptional || entry.contains(field.name)) << field.name.toStdString();
            if (entry.contains(field.name)) {
                EXPECT_EQ(field.type, typeName(entry[field.name])) << field.name.toStdString();
            }
        }
        for (const QString& name : entry.keys()) {
            EXPECT_TRUE(known.contains(name)) << name.toStdString() << " is not documented";
        }
        EXPECT_GE(entry["time"].toDouble(), last);
        last = entry["time"].toDouble();
        story.append(QStringLiteral("%1 %2 %3 %4")
                         .arg(entry["object"].toInt())
                         .arg(kind, entry["name"].toString())
                         .arg(entry["state"].toInt(entry["status"].toInt(entry["code"].toInt()))));
        if (kind == "request") {
            requests.append(entry["url"].toString().section('/', -1) + ' ' + QString::number(entry["status"].toInt()));
            EXPECT_GT(entry["bytes"].toDouble(), entry["status"].toInt() == 200 ? 50 : -1);
        } else if (kind == "console") {
            EXPECT_TRUE(entry["file"].toString().endsWith("timeline.html"));
            EXPECT_EQ("half way", entry["text"].toString());
        } else if (kind == "error") {
            EXPECT_EQ("HTTP 404", entry["cause"].toString());
            EXPECT_TRUE(entry["url"].toString().endsWith(".ts"));
        }
    }
    EXPECT_FALSE(story.contains("1 read fullScreen 0")) << "the television's own question, the page asks nothing of it";
    for (const char* request : {"film.mp4 200", "master.m3u8 200", "picture.m3u8 200", "picture-0.ts 404"}) {
        EXPECT_TRUE(requests.contains(request)) << request << " is missing in " << requests.join(", ").toStdString();
    }
    qsizetype at = 0;
    for (const char* step : {"1 created  0", "1 call play 0", "1 command Play 0", "1 state connecting 3",
                             "1 event onPlayStateChange 0", "1 request  200", "1 report PLAYING 0", "1 state playing 1",
                             "0 key RIGHT 0", "0 console  0", "0 script-error  0", "1 report ERROR 5",
                             "1 error the content is not available 5", "1 state error 6", "1 gone  0"}) {
        at = story.indexOf(step, static_cast<int>(at));
        ASSERT_GE(at, 0) << step << " is missing, or comes too early in\n" << story.join('\n').toStdString();
    }
}

TEST(Timeline, NamesAFileThatCannotBeWritten) {
    EXPECT_EQ(1, browse({"--timeline", "/nowhere/timeline.jsonl", PAGES "/timeline.html"}));
}

int thePosition = 0;
int theSpeed = 1;

TEST(Timeline, MarksAFilmThatStandsStillOnce) {
    PlaybackTracker tracker;
    TimelineEntries entries;
    const auto append = [&](int object, int player, const timeline::Details& details) {
        tracker.append({0, -1, object, player, details}, entries);
    };
    int64_t now = 0;
    const auto stallsAfter = [&](int tenths, int step) {
        entries.clear();
        for (int i = 0; i < tenths; ++i, now += 100'000, thePosition += step) {
            tracker.appendStalls(now, entries);
        }
        return entries.size();
    };
    append(7, -1, timeline::Created());
    append(0, 3, timeline::Command{MEDIA_FUNCTION_OPEN, "", {}, 0, 1});
    EXPECT_EQ(0, stallsAfter(30, 0)) << "connecting";
    append(7, -1, timeline::State{PlayState::PLAYING});
    EXPECT_EQ(0, stallsAfter(30, 100)) << "it moves";
    EXPECT_EQ(1, stallsAfter(50, 0));
    EXPECT_EQ(7, entries.constFirst().object);
    EXPECT_EQ(0, stallsAfter(10, 100));
    EXPECT_EQ(1, stallsAfter(50, 0)) << "a second one";
    theSpeed = 0;
    EXPECT_EQ(0, stallsAfter(50, 0)) << "speed 0";
}

} // namespace

// The player of the test above.
int mediaStateRead(int player, MediaState* state) {
    *state = {MEDIA_STATE_STARTED, theSpeed, thePosition, 60'000, 100};
    return player == 3 ? 1 : 0;
}
