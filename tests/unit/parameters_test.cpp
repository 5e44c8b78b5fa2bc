#include "av_control_test.h"

#include <string.h>

using Parameters = AvControl;

TEST_F(Parameters, TenNamesAreKnownByTheirExactSpelling) {
    const auto known = [&](const char* name) { return video()->hasParam(const_cast<char*>(name)); };
    for (const char* name :
         {"id", "type", "data", "width", "height", "style", "cache", "loop", "subtitles", "captions"}) {
        EXPECT_TRUE(known(name)) << name;
        EXPECT_EQ("(none)", video().param(name)) << name;
        EXPECT_TRUE(video().param(name, "http")) << name;
        EXPECT_EQ("http", video().param(name)) << name;
        EXPECT_TRUE(video().param(name, "")) << name;
        EXPECT_EQ("(none)", video().param(name)) << name << " is empty";
        EXPECT_FALSE(video()->setParam(const_cast<char*>(name), nullptr)) << name;
        EXPECT_FALSE(video()->getParam(const_cast<char*>(name), nullptr)) << name;
    }
    for (const char* name : {"Data", "src", "", "data "}) {
        EXPECT_FALSE(known(name) || video().param(name, "x")) << name;
        EXPECT_EQ("(none)", video().param(name)) << name;
    }
    EXPECT_EQ(1, logged(2, "PARAM (style) = http\n\n"));
}

TEST_F(Parameters, ValuesAreTakenUpToTheirLimitAndRefusedWholeBeyond) {
    const std::string longest(1024, 'v');
    for (const char* name : {"style", "cache", "width", "subtitles", "type"}) {
        EXPECT_TRUE(video().param(name, longest)) << name;
        forgetLog();
        happened();
        EXPECT_FALSE(video().param(name, std::string(1025, 'w'))) << name;
        EXPECT_EQ(longest, video().param(name)) << name;
        EXPECT_EQ("", happened()) << name;
        EXPECT_EQ(1, logged(5, "Parameter " + std::string(name) + " refused: 1025 bytes, at most 1024 are taken\n"));
    }
    EXPECT_EQ("\"" + longest + "\"", video().read("cache"));
    EXPECT_EQ("\"" + longest + "\"", video().read("width"));
}

TEST_F(Parameters, ARelativeAddressIsResolvedAgainstThePage) {
    const char* const page = "http://tv.example/app/index.html";
    const std::vector<std::string> rows[] = {// page, value, address (empty: not resolved)
                                             {page, "film.mp4", "http://tv.example/app/film.mp4"},
                                             {page, "/media/a.mp4", "http://tv.example/app//media/a.mp4"},
                                             {page, "https://other/a", "https://other/a"},
                                             {page, "x?u=http", "x?u=http"},
                                             {"http://a/b?c=/d", "e.mp4", "http://a/b?c=/e.mp4"},
                                             {"http:///", "a.mp4", "http:///a.mp4"},
                                             {"file:///http/index.html", "a.mp4", "file:///http/a.mp4"},
                                             {"http://host", "a.mp4", ""},
                                             {"http", "a.mp4", ""},
                                             {"file:///home/index.html", "a.mp4", ""}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row[0] + " " + row[1]);
        browser().location->properties["href"] = row[0];
        video().param("data", "http://before/");
        happened();
        EXPECT_TRUE(video().param("data", row[1]));
        const std::string& kept = row[2].empty() ? "http://before/" : row[2];
        EXPECT_EQ("\"" + kept + "\"", video().read("data"));
        EXPECT_EQ(row[2].empty() ? row[1] : row[2], video().param("data"));
        EXPECT_EQ("7.SetSource(\"" + kept + "\")", happened()) << "the player is asked in any case";
    }
    EXPECT_EQ(1, logged(2, "Host URI doesn't contains http://!! That is weird!!\n"));
    EXPECT_EQ(2, logged(2, "There is no / character in the host URI!! Handle this case!!\n"));
    EXPECT_TRUE(video().param("data", ""));
    EXPECT_EQ("\"\"", video().read("data"));
}

TEST_F(Parameters, APageWithoutAnAddressLeavesDataAsItWas) {
    const std::function<void()> losses[] = {
        [] { browser().location->properties["href"] = 5; },        [] { browser().location->properties.clear(); },
        [] { browser().window->properties["location"] = "text"; }, [] { browser().window->properties.clear(); },
        [] { browser().objects = fake::Browser::GivesNull; },      [] { browser().objects = fake::Browser::Refuses; }};
    for (const auto& lose : losses) {
        lose();
        EXPECT_TRUE(video().param("data", "film.mp4"));
        EXPECT_EQ("\"\"", video().read("data"));
    }
    EXPECT_EQ("", happened());
}

TEST_F(Parameters, AResolvedAddressHasItsLimitToo) {
    const std::string folder = "http://tv.example/app/";
    const std::string fits(1023 - folder.size(), 'a');
    EXPECT_TRUE(video().param("data", fits));
    EXPECT_EQ("7.SetSource(\"" + folder + fits + "\")", happened());
    for (const size_t more : {1u, 2u}) { // too long for the player, too long to be kept
        forgetLog();
        EXPECT_EQ(more == 1, video().param("data", fits + std::string(more, 'b')));
        EXPECT_EQ("", happened());
        ASSERT_EQ(1u, errorLines().size());
        EXPECT_NE(std::string::npos, errorLines()[0].find(std::to_string(1023 + more))) << errorLines()[0];
    }
    for (const size_t length : {1022u, 1025u}) { // of the page's own address
        browser().location->properties["href"] = "http://" + std::string(length - 8, 'h') + "/";
        EXPECT_TRUE(video().param("data", "b"));
        EXPECT_EQ(length == 1022, video().param("data") != "b") << "what does not fit resolves nothing";
    }
}

TEST_F(Parameters, TheTypeTellsVideoFromAudioByItsFirstFiveBytes) {
    const std::pair<const char*, int> rows[] = {{"audio/mpeg", AUDIO}, {"application/dash+xml", AUDIO},
                                                {"video/mp4", VIDEO},  {"aud", VIDEO},
                                                {"audiotape", AUDIO},  {"Video/mp4", AUDIO},
                                                {"video", VIDEO},      {"", VIDEO}};
    for (const auto& [type, kind] : rows) {
        EXPECT_TRUE(video().param("type", type));
        EXPECT_EQ(kind, video()->m_eMediaType) << type;
    }
    EXPECT_EQ(4, logged(2, "ERROR: object type is not audio or video!\n\n"));
    EXPECT_EQ(2, logged(2, "TypeBuffer : audio\n\n"));
}

TEST_F(Parameters, SizesMoveThePictureWhilePlayingOnly) {
    television().quiet.clear();
    video()->m_nX = 10;
    video()->m_nY = 20;
    EXPECT_TRUE(video().param("width", "640"));
    EXPECT_TRUE(video().param("height", "360"));
    EXPECT_EQ("\"640\" \"360\"", video().read("width") + " " + video().read("height"));
    EXPECT_EQ(1280u, video()->m_nW);
    video().is(MP_PLAYING);
    EXPECT_TRUE(video().param("width", "640px"));
    EXPECT_EQ("", happened());
    EXPECT_EQ(640u, video()->m_nW);
    EXPECT_EQ("\"640px\"", video().read("width"));
    EXPECT_TRUE(video().param("height", "360"));
    EXPECT_EQ("7.SetWindow(10,20,640,360)", happened());
    EXPECT_EQ(360u, video()->m_nH);
    EXPECT_EQ("360", video().read("height")) << "the size that the player was given";
    EXPECT_EQ(1, logged(2, "width.PlayState:[0]\n\n"));
    EXPECT_EQ(1, logged(2, "height.PlayState:[1]\n\n"));
    EXPECT_TRUE(video().param("width", "99999999999999999999"));
    EXPECT_EQ(2147483647u, video()->m_nW);
}

TEST_F(Parameters, LoopTakesACountAsItComesOrInfinite) {
    EXPECT_TRUE(video().param("loop", "infinite"));
    EXPECT_TRUE(video()->m_bRepeateUntilStop && !video()->m_bRepeateUtilNum);
    EXPECT_TRUE(video().param("loop", "3"));
    EXPECT_TRUE(video()->m_bRepeateUntilStop && video()->m_bRepeateUtilNum);
    EXPECT_EQ(3, video()->m_nRepeateNum);
    EXPECT_TRUE(video().param("loop", "often"));
    EXPECT_EQ(0, video()->m_nRepeateNum);
    EXPECT_EQ("0", video().read("loop"));
}

TEST_F(Parameters, EverySubtitleParameterAddsATrack) {
    const std::string longUrl(1020, 'u');
    const std::vector<std::string> rows[] = {// text, language, label, address
                                             {"srclang:deu laber:Deutsch src:x.vtt", "deu", "Deutsch", "x.vtt"},
                                             {"srclang:fr\tsrc:a.srt", "fr", "", "a.srt"},
                                             {"src:http://h/a?b=c srclang:english", "eng", "", "http://h/a?b=c"},
                                             {"laber:12345678901234567890 srclang: src:", "", "123456789012345", ""},
                                             {"SRC:a.srt label:x", "", "", ""},
                                             {"xsrc:a src:b", "", "", "a"},
                                             {"src:" + longUrl, "", "", longUrl}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row[0]);
        for (const char* name : {"subtitles", "captions"}) {
            EXPECT_TRUE(video().param(name, row[0]));
            EXPECT_EQ("7.AddSubtitle()", happened());
            EXPECT_EQ(row[1], television().subtitle.lang);
            EXPECT_EQ(row[2], television().subtitle.laber);
            EXPECT_EQ(row[3], television().subtitle.url);
        }
    }
    sub_properties_t track;
    memset(&track, 0x7f, sizeof track);
    const std::string tooLong = "src:" + std::string(5000, 'u');
    VideoPlugin::getSubtitleProperties(const_cast<char*>(tooLong.c_str()), &track);
    EXPECT_EQ(std::string(1023, 'u'), track.url);
    EXPECT_EQ(0x7f, track.lang[0]) << "fields that are not named stay";
    VideoPlugin::getSubtitleProperties(nullptr, &track);
    VideoPlugin::getSubtitleProperties(const_cast<char*>("src:x"), nullptr);
    EXPECT_EQ(2, logged(5, "pSub or pSubProperties is NULL\n"));
}
