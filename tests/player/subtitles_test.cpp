// The subtitles of the real player: what files say, word for word and to the millisecond.
#include "media_subtitles.h"
#include "player_fixture.h"

#include <fstream>
#include <unistd.h>

namespace {

constexpr const char* WEBVTT = "WEBVTT - with a title\n\nNOTE none of this shows\n\nSTYLE\n::cue { color: red }\n\n"
                               "first\n00:01.000 --> 00:02.000 line:10% align:start\n"
                               "<v Mary Ann>A <b>bold</b> <c.red>A &amp; B</v>\n1 &lt; 2 <i>open\n\n"
                               "01.500 --> nonsense\n\n"
                               "00:00:03.000 --> 00:00:05.000\nthree\n\n00:04.000 --> 00:05.000\nfour\n";
constexpr const char* SUBRIP = "\xEF\xBB\xBF"
                               "1\r\n00:00:01,000 --> 00:00:02,000\r\n{\\an8}<font color=\"#ff0000\">Red</font> & "
                               "<u>blue</u>\r\nx < y\r\n\r\n2\r\n00:00:03,000 --> 00:00:05,000\r\nzwei\r\n";
constexpr const char* LATIN = "1\n00:00:01,000 --> 00:00:02,000\ngr\xFC\xDF dich\n\n";
constexpr const char* TTML =
    "<?xml version='1.0' encoding='UTF-8'?><!-- <tt:tt> --><tt:tt xmlns:tt='http://www.w3.org/ns/ttml' "
    "xmlns:ttp='http://www.w3.org/ns/ttml#parameter' xmlns:tts='http://www.w3.org/ns/ttml#styling' xml:lang='fr' "
    "ttp:timeBase='media' ttp:cellResolution='32 15'><tt:head><tt:styling><tt:style xml:id='a' tts:color='#ffffff'/>"
    "<tt:style xml:id='b' tts:color='#ffff00'/></tt:styling><tt:layout><tt:region xml:id='r' tts:origin='10% 80%' "
    "tts:extent='80% 15%'/></tt:layout></tt:head><tt:body><tt:div><tt:p region='r' begin='00:00:01.000' "
    "end='00:00:02.000'><tt:span style='a'>R &amp; </tt:span><tt:span style='b'>D</tt:span><tt:br/><tt:span style='a'>"
    "deux</tt:span></tt:p><tt:p region='r' begin='00:00:03.000' end='00:00:05.000'><tt:span style='a'>trois</tt:span>"
    "</tt:p></tt:div></tt:body></tt:tt>";

class Subtitles : public PlayerTest {
protected:
    static void SetUpTestSuite() {
        PlayerTest::SetUpTestSuite();
        folder = fs::temp_directory_path() / ("subtitles-test-" + std::to_string(getpid()));
        fs::create_directories(folder);
        // The names say nothing: the content has to.
        const std::pair<const char*, std::string> files[] = {{"webvtt.srt", WEBVTT},
                                                             {"subrip", SUBRIP},
                                                             {"latin.vtt", LATIN},
                                                             {"ttml.txt", TTML},
                                                             {"nothing.vtt", ""},
                                                             {"header.vtt", "WEBVTT\n\n"},
                                                             {"page.vtt", "<!DOCTYPE html><p>no</p>"},
                                                             {"cut.ttml", std::string(TTML).substr(0, 700)},
                                                             {"endless.vtt", std::string(5'000'000, 'x')}};
        for (const auto& [name, content] : files) {
            std::ofstream(folder / name, std::ios::binary) << content;
        }
        server->mount(folder);
    }
    static void TearDownTestSuite() {
        PlayerTest::TearDownTestSuite();
        fs::remove_all(folder);
    }

    static void add(const TestPlayer& player, const std::string& url, const char* language = "") {
        sub_properties_t track = {};
        std::string(language).copy(track.lang, sizeof track.lang - 1);
        url.copy(track.url, sizeof track.url - 1);
        ASSERT_EQ(1, Hbbtv_AL_MediaPlayerAddSubtitle(player.handle, &track));
    }

    static std::vector<Hbbtv_AL_ComponentInfo> list(const TestPlayer& player) {
        std::vector<Hbbtv_AL_ComponentInfo> infos(20);
        const int count = Hbbtv_AL_MediaPlayerGetComponents(player.handle, AV_COMPONENT_TYPE_SUBTITLE, infos.data(),
                                                            static_cast<int>(infos.size()));
        infos.resize(static_cast<size_t>(count));
        return infos;
    }

    static bool select(const TestPlayer& player, int pid) {
        AVComponent record = {};
        record.type = AV_COMPONENT_TYPE_SUBTITLE;
        record.pid = pid;
        AVSubtitleComponent component = {};
        component.avComponent = &record;
        return Hbbtv_AL_MediaPlayerSelectAVSubtitleComponent(player.handle, &component) == 1;
    }

    static std::string textAt(const TestPlayer& player, int64_t ms) {
        const std::unique_ptr<char, void (*)(void*)> text(mediaSubtitlesAt(player.handle, ms), &std::free);
        return text ? text.get() : "";
    }

    static bool says(const TestPlayer& player, int64_t ms, const std::string& wanted) {
        return comesToHold([&] { return textAt(player, ms) == wanted; });
    }

    static inline fs::path folder;
};

} // namespace

TEST_F(Subtitles, AreReadWordForWordWhateverTheirNames) {
    TestPlayer player;
    add(player, server->url("/webvtt.srt"), "en");
    add(player, server->url("/subrip"), "ger");
    add(player, server->url("/latin.vtt"));
    add(player, "ttml.txt", "fra"); // no page is known: relative to the film
    EXPECT_TRUE(list(player).empty()) << "there is no media yet";
    player.start(filmUrl);
    ASSERT_EQ(0, player.waitFor(eMEDIA_CALLBACK_PLAYING));
    const std::vector<Hbbtv_AL_ComponentInfo> infos = list(player);
    ASSERT_EQ(4U, infos.size());
    EXPECT_STREQ("eng", infos[0].language);
    EXPECT_STREQ("deu", infos[1].language);
    EXPECT_STREQ("und", infos[2].language);
    EXPECT_EQ("", textAt(player, 1000)) << "nothing is selected";

    ASSERT_TRUE(select(player, infos[0].pid));
    EXPECT_EQ(2, player.waitFor(eMEDIA_CALLBACK_SELECTED_COMPONENT_CHANGED));
    EXPECT_TRUE(says(player, 1000, "A <b>bold</b> A &amp; B\n1 &lt; 2 <i>open</i>"));
    EXPECT_EQ("", textAt(player, 999));
    EXPECT_NE("", textAt(player, 1999));
    EXPECT_EQ("", textAt(player, 2000));
    EXPECT_EQ("three\nfour", textAt(player, 4000));
    EXPECT_STREQ("WEBVTT", list(player)[0].encoding);

    ASSERT_TRUE(select(player, infos[1].pid));
    EXPECT_TRUE(says(player, 1000, "Red &amp; <u>blue</u>\nx &lt; y"));
    EXPECT_EQ("zwei", textAt(player, 4999));
    ASSERT_TRUE(select(player, infos[2].pid));
    EXPECT_TRUE(says(player, 1000, "gr\u00FC\u00DF dich"));
    ASSERT_TRUE(select(player, infos[3].pid));
    EXPECT_TRUE(says(player, 1000, "R &amp; D\ndeux"));
    EXPECT_EQ("trois", textAt(player, 3000));
    EXPECT_STREQ("TTML", list(player)[3].encoding);

    EXPECT_EQ(1, Hbbtv_AL_MediaPlayerUnselectAVComponentByType(player.handle, AV_COMPONENT_TYPE_SUBTITLE));
    EXPECT_EQ("", textAt(player, 1000));
    EXPECT_EQ(0, Hbbtv_AL_MediaPlayerUnselectAVComponentByType(player.handle, AV_COMPONENT_TYPE_SUBTITLE));
    EXPECT_FALSE(select(player, infos[3].pid + 1)) << "there is no such component";
}

TEST_F(Subtitles, ThatCannotBeReadAreGoneAndTheFilmPlaysOn) {
    TestPlayer player;
    for (const char* name : {"/missing.vtt", "/nothing.vtt", "/header.vtt", "/page.vtt", "/cut.ttml", "/endless.vtt"}) {
        add(player, server->url(name));
    }
    add(player, "http://127.0.0.1:1/refused.vtt");
    add(player, "soup:tomato");
    Hbbtv_AL_MediaPlayerSetSource(player.handle, filmUrl.c_str());
    ASSERT_EQ(1, Hbbtv_AL_MediaPlayerPlay(player.handle, 0));
    EXPECT_EQ(1, Hbbtv_AL_MediaPlayerSelectDefaultAVComponent(player.handle, AV_COMPONENT_TYPE_SUBTITLE));
    EXPECT_EQ(2, player.waitFor(eMEDIA_CALLBACK_SELECTED_COMPONENT_CHANGED));
    EXPECT_TRUE(comesToHold([&] { return list(player).empty(); }));
    EXPECT_EQ(2, player.waitFor(eMEDIA_CALLBACK_SELECTED_COMPONENT_CHANGED)) << "the selected one has gone";
    add(player, server->url("/subrip")); // one that comes late is read while the film plays
    EXPECT_EQ(1, Hbbtv_AL_MediaPlayerSelectDefaultAVComponent(player.handle, AV_COMPONENT_TYPE_SUBTITLE));
    EXPECT_TRUE(says(player, 3000, "zwei"));
    const int64_t first = player.position();
    EXPECT_TRUE(comesToHold([&] { return player.position() > first; }));
    EXPECT_EQ(-1, player.waitFor(eMEDIA_CALLBACK_ERROR, milliseconds(1)));
}

TEST_F(Subtitles, AreLeftAtAnyMomentOfTheirReading) {
    stopAtAnyMoment({filmUrl}, 60, 3, [](const TestPlayer& player) {
        for (const char* name : {"/webvtt.srt", "/ttml.txt", "/endless.vtt"}) {
            add(player, server->url(name));
        }
        Hbbtv_AL_MediaPlayerSelectDefaultAVComponent(player.handle, AV_COMPONENT_TYPE_SUBTITLE);
    });
}
