#include "av_control_test.h"

class Geometry : public AvControl {
protected:
    Geometry() {
        television().quiet.clear();
        handler("onFullScreenChange");
        listener("FullScreenChange"); // which is never called
    }

    std::string layOut(int x, int y, unsigned w, unsigned h) {
        NPWindow window = {nullptr, x, y, w, h, {}, nullptr, NPWindowTypeDrawable};
        EXPECT_EQ(NPERR_NO_ERROR, video()->setWindow(nullptr, &window));
        return happened();
    }
};

TEST_F(Geometry, ThePictureFollowsTheElement) {
    const std::tuple<int, int, unsigned, unsigned, const char*, const char*> rows[] = {
        {0, 0, 1280, 720, "onFullScreenChange()", "true"}, // the rectangle that an object starts with
        {100, 50, 640, 360, "onFullScreenChange() 7.SetWindow(100,50,640,360)", "false"},
        {100, 50, 640, 360, "", "false"},
        {-5, 50, 640, 360, "7.SetWindow(-5,50,640,360)", "false"},
        {-5, 7, 640, 360, "7.SetWindow(-5,7,640,360)", "false"},
        {100, 50, 1280, 720, "onFullScreenChange() 7.SetWindow(0,0,1280,720)", "true"},
        {0, 0, 1280, 720, "", "true"},
        {100, 50, 1280, 720, "7.SetWindow(0,0,1280,720)", "true"},
        {0, 0, 1280, 600, "7.SetWindow(0,0,1280,600)", "true"},
        {0, 0, 600, 720, "7.SetWindow(0,0,600,720)", "true"},
        {0, 0, 0, 0, "onFullScreenChange() 7.SetWindow(0,0,0,0)", "false"},
        {0, 0, 1280, 0, "7.SetWindow(0,0,1280,0)", "false"}};
    for (const auto& [x, y, w, h, events, full] : rows) {
        SCOPED_TRACE(testing::Message() << x << " " << y << " " << w << " " << h);
        EXPECT_EQ(events, layOut(x, y, w, h));
        EXPECT_EQ(full, video().read("fullScreen"));
        EXPECT_EQ(w, video()->m_nW);
    }
    EXPECT_EQ("1280 0", video().read("width") + " " + video().read("height"));
    layOut(1, 2, 4000000000u, 4000000000u);
    EXPECT_EQ(NPERR_NO_ERROR, video()->setWindow(nullptr, nullptr));
    EXPECT_EQ("", happened());
}

TEST_F(Geometry, FullScreenGoesThereAndBack) {
    const auto place = [&] {
        return video().read("fullScreen") + " " + video().read("width") + " " + video().read("height");
    };
    layOut(100, 50, 640, 360);
    EXPECT_EQ("true", video().call("setFullScreen", {true}));
    EXPECT_EQ("7.SetWindow(0,0,1280,720) onFullScreenChange()", happened());
    EXPECT_EQ("true 1280 720", place());
    EXPECT_EQ("true", video().call("setFullScreen", {true}));
    EXPECT_EQ("", happened());
    EXPECT_EQ("true", video().call("setFullScreen", {false}));
    EXPECT_EQ("7.SetWindow(100,50,640,360) onFullScreenChange()", happened());
    EXPECT_EQ("false 640 360", place());
    expectLogged({"new FullScreen is equal to old FullScreen\n", "setFullScreen set player in fullscreen mode\n",
                  "setFullScreen  set player not in fullscreen mode\n"});
}

TEST_F(Geometry, ThePlaceThatAHandlerBringsAboutHolds) {
    NPWindow window = {nullptr, 100, 50, 1280, 720, {}, nullptr, NPWindowTypeDrawable};
    layOut(100, 50, 640, 360);
    handler("onFullScreenChange", [&] {
        window = {nullptr, 1, 2, 320, 180, {}, nullptr, NPWindowTypeDrawable};
        handler("onFullScreenChange");
        video()->setWindow(nullptr, &window);
    });
    video()->setWindow(nullptr, &window);
    EXPECT_EQ("onFullScreenChange() onFullScreenChange() 7.SetWindow(1,2,320,180)", happened());
}

TEST_F(Geometry, FullScreenTakesTheTruthOfItsArgument) {
    const std::pair<Value, bool> rows[] = {{1, true},        {-0.5, true},     {true, true},
                                           {0, false},       {0.0, false},     {"true", false},
                                           {nullptr, false}, {Value(), false}, {browser().element, false},
                                           {false, false}};
    for (const auto& [argument, truth] : rows) {
        video().call("setFullScreen", {!truth});
        EXPECT_EQ("true", video().call("setFullScreen", {argument}));
        EXPECT_EQ(text(Value(truth)), video().read("fullScreen")) << text(argument);
    }
    happened();
}

TEST_F(Geometry, ARefusedWindowIsPublishedAllTheSame) {
    television().refused = {"SetWindow"};
    layOut(1, 2, 300, 200);
    EXPECT_EQ("300", video().read("width"));
    expectLogged({"Setting Hbbtv_AL_MediaPlayerSetWindow failed!\n", "SetupPlayer : x 1, y 2, w 300, h 200\n"});
}

TEST_F(Geometry, AHandlerMayEndTheObjectInside) {
    layOut(100, 50, 640, 360);
    handler("onFullScreenChange", [&] { video().destroy(); });
    EXPECT_EQ("true", video().call("setFullScreen", {true}));
    m_videos.front() = std::make_unique<Video>();
    handler("onFullScreenChange", [&] { video().destroy(); });
    layOut(100, 50, 1280, 720);
}

TEST_F(Geometry, OnlyAnHttpAddressLongEnoughIsTaken) {
    for (const Value& address : Arguments{"http://a", "https://a", "xhttp", "http", "dvb://1.2", "", nullptr, 17}) {
        NPN_ReleaseVariantValue(&video()->m_pNpVarProperties[data]);
        address.give(&video()->m_pNpVarProperties[data]);
        const bool taken = text(address).find("http") < 3 && text(address) != "\"http\"";
        EXPECT_EQ(taken, video()->SetInput()) << text(address);
        EXPECT_EQ(taken ? "7.SetSource(" + text(address) + ")" : "", happened());
    }
}
