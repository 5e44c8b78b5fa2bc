// The server for local pages, over real connections.
#include "server/LiveList.h"
#include "server/LoopbackServer.h"

#include <fstream>
#include <gtest/gtest.h>
#include <httplib.h>

using namespace tv;

namespace fs = std::filesystem;

namespace {

class LoopbackServerTest : public testing::Test {
protected:
    void SetUp() override {
        std::string pattern = (fs::temp_directory_path() / "loopback-XXXXXX").string();
        m_folder = mkdtemp(pattern.data());
        fs::create_directories(m_folder / "site/sub");
        fs::create_directories(m_folder / "films");
        write("site/page.xhtml", "page");
        write("site/page.hbbtv", "page");
        write("site/sub/index.html", "index");
        write("films/a.mp4", "0123456789");
        write("secret", "secret");
        fs::create_symlink(m_folder / "secret", m_folder / "site/link");
        ASSERT_TRUE(m_server.mount("", m_folder / "site"));
        ASSERT_TRUE(m_server.mount("films", m_folder / "films"));
        m_port = m_server.start();
        ASSERT_GT(m_port, 0);
    }

    void TearDown() override { fs::remove_all(m_folder); }

    void write(const char* file, const std::string& text) const { std::ofstream(m_folder / file) << text; }

    httplib::Result get(const std::string& path, const httplib::Headers& headers = {}) const {
        httplib::Client client("127.0.0.1", m_port);
        client.set_url_encode(false);
        return client.Get(path, headers);
    }

    /// @return status, content range and body of an answer to a request for a range
    std::string range(const std::string& bytes) const {
        const auto answer = get("/films/a.mp4", {{"Range", "bytes=" + bytes}});
        if (!answer) {
            return "no answer";
        }
        return std::to_string(answer->status) + " " + answer->get_header_value("Content-Range") + " " + answer->body;
    }

    fs::path m_folder;
    LoopbackServer m_server;
    int m_port = 0;
};

TEST_F(LoopbackServerTest, ServesFilesWithTheirTypes) {
    EXPECT_EQ(get("/page.xhtml")->get_header_value("Content-Type"), "application/xhtml+xml");
    EXPECT_EQ(get("/page.hbbtv")->get_header_value("Content-Type"), "application/vnd.hbbtv.xhtml+xml");
    EXPECT_EQ(get("/sub/")->body, "index");
    EXPECT_EQ(get("/sub")->get_header_value("Location"), "/sub/");
    EXPECT_EQ(get("/films/a.mp4")->get_header_value("Content-Type"), "video/mp4");
    EXPECT_EQ(get("/missing")->status, 404);
}

TEST_F(LoopbackServerTest, ServesRangesAndRefusesThoseOutsideTheFile) {
    EXPECT_EQ(range("2-4"), "206 bytes 2-4/10 234");
    EXPECT_EQ(range("7-"), "206 bytes 7-9/10 789");
    EXPECT_EQ(range("-2"), "206 bytes 8-9/10 89");
    EXPECT_EQ(range("8-99"), "206 bytes 8-9/10 89");
    EXPECT_EQ(range("10-"), "416 bytes */10 HTTP 416\n");
}

TEST_F(LoopbackServerTest, TakesAPortAgainThatIsFree) {
    int port = 0;
    {
        LoopbackServer other;
        port = other.start(m_port);
        EXPECT_GT(port, 0);
        EXPECT_NE(port, m_port) << "two servers share a port";
    }
    LoopbackServer again;
    EXPECT_EQ(again.start(port), port);
}

TEST_F(LoopbackServerTest, KeepsToItsFolders) {
    for (const char* path :
         {"/../secret", "/%2e%2e/secret", "/..%2fsecret", "/films/../../secret", "/link", "/page.xhtml%00"}) {
        EXPECT_EQ(get(path)->status, 404) << path;
    }
    EXPECT_FALSE(m_server.mount("a/b", m_folder));
    EXPECT_FALSE(m_server.mount("nothing", m_folder / "nothing"));
}

TEST_F(LoopbackServerTest, DoesWrongOnRequest) {
    EXPECT_EQ(get("/films/a.mp4?fault=status:404")->status, 404);
    EXPECT_EQ(get("/films/a.mp4?fault=type:text/plain,delay:1")->get_header_value("Content-Type"), "text/plain");
    EXPECT_EQ(get("/films/a.mp4?fault=redirect,type:a/b")->get_header_value("Location"),
              "/films/a.mp4?fault=,type:a/b");
    EXPECT_EQ(get("/films/a.mp4?fault=,type:a/b")->body, "0123456789");
    EXPECT_EQ(get("/films/a.mp4?fault=norange", {{"Range", "bytes=2-4"}})->body, "0123456789");
    EXPECT_EQ(get("/films/a.mp4?fault=throttle:1000")->body, "0123456789");
    EXPECT_EQ(get("/films/a.mp4?fault=soup")->status, 400);
    EXPECT_FALSE(get("/films/a.mp4?fault=cut:4"));
    EXPECT_FALSE(get("/films/a.mp4?fault=cut:4", {{"Range", "bytes=6-"}})) << "nor what comes after";
    for (const char* quiet : {"/films/a.mp4?fault=silent", "/films/a.mp4?fault=stall:4"}) {
        httplib::Client client("127.0.0.1", m_port);
        client.set_read_timeout(0, 300000);
        EXPECT_EQ(client.Get(quiet).error(), httplib::Error::Read);
    }
    m_server.setFaults({{"*/a.*", *parseServerFault("redirect,status:410")}});
    EXPECT_EQ(get("/films/a.mp4")->status, 302);
    EXPECT_EQ(get(get("/films/a.mp4")->get_header_value("Location"))->status, 200);
    EXPECT_EQ(get("/page.xhtml")->status, 200);
}

TEST_F(LoopbackServerTest, MakesAFilmsPlaylistALiveOne) {
    write("films/a.m3u8", "#EXTM3U\n#EXT-X-TARGETDURATION:3\n#EXT-X-PLAYLIST-TYPE:VOD\n"
                          "#EXTINF:2,\n1.ts\n#EXTINF:3,\n2.ts\n#EXT-X-ENDLIST\n");
    EXPECT_EQ(get("/films/a.m3u8?live")->body,
              "#EXTM3U\n#EXT-X-TARGETDURATION:3\n#EXT-X-MEDIA-SEQUENCE:0\n#EXT-X-DISCONTINUITY-SEQUENCE:0\n"
              "#EXTINF:2,\n1.ts\n#EXTINF:3,\n2.ts\n#EXT-X-DISCONTINUITY\n#EXTINF:2,\n1.ts\n#EXTINF:3,\n2.ts\n"
              "#EXT-X-DISCONTINUITY\n#EXTINF:2,\n1.ts\n");
    const std::string later = liveList(get("/films/a.m3u8")->body, 8.5);
    EXPECT_NE(later.find("#EXT-X-MEDIA-SEQUENCE:3\n#EXT-X-DISCONTINUITY-SEQUENCE:1\n#EXTINF:3,\n2.ts\n"),
              std::string::npos)
        << later;
    EXPECT_EQ(
        liveList("#EXTM3U\n#EXT-X-MEDIA:TYPE=AUDIO,URI=\"a.m3u8\",NAME=\"x\"\n#EXT-X-STREAM-INF:BANDWIDTH=1\nv.m3u8\n",
                 1),
        "#EXTM3U\n#EXT-X-MEDIA:TYPE=AUDIO,URI=\"a.m3u8?live\",NAME=\"x\"\n#EXT-X-STREAM-INF:BANDWIDTH=1\nv.m3u8?"
        "live\n");
}

TEST_F(LoopbackServerTest, AnswersOnlyToItsOwnName) {
    EXPECT_EQ(get("/page.xhtml", {{"Host", "elsewhere.example"}})->status, 403);
}

} // namespace
