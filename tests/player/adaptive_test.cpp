// The real player on streams, HLS, DASH and MPEG-TS: what they ask servers for and leave behind. The rest, pages show.
#include "media_requests.h"
#include "player_fixture.h"

#include <cstring>

using Streams = PlayerTest;

TEST_F(Streams, AskWithTheTelevisionsNameAndThePagesCookies) {
    mediaRequestsSetUserAgent("HbbTV/1.6.1 (; maker; model; 1.0; ; family; )");
    mediaRequestsSetCookieCallback([](const char*, void*) { return strdup("seen=1; kept=2"); }, nullptr);
    for (const char* stream : {"/hls/languages/master.m3u8", "/dash/template/manifest.mpd", "/languages.ts"}) {
        const size_t before = server->requests().size();
        {
            TestPlayer player;
            player.start(server->url(stream));
            EXPECT_EQ(0, player.waitFor(eMEDIA_CALLBACK_PLAYING)) << stream;
        }
        const auto requests = server->requests();
        EXPECT_GT(requests.size(), before) << stream;
        for (size_t i = before; i < requests.size(); ++i) {
            EXPECT_EQ("HbbTV/1.6.1 (; maker; model; 1.0; ; family; )", requests[i].userAgent) << requests[i].path;
            EXPECT_EQ("seen=1; kept=2", requests[i].cookie) << requests[i].path;
        }
    }
    mediaRequestsSetUserAgent(nullptr);
    mediaRequestsSetCookieCallback(nullptr, nullptr);
}

TEST_F(Streams, LeaveNothingBehind) {
    stopAtAnyMoment({server->url("/hls/ts/master.m3u8"), server->url("/hls/languages/master.m3u8"),
                     server->url("/dash/template/manifest.mpd"), server->url("/languages.ts")},
                    240, 20);
}
