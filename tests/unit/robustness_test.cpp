#include "av_control_test.h"

#include <random>

namespace {

/** A page whose script does anything, drawn from a seed. */
class Chaos {
public:
    explicit Chaos(unsigned seed) : m_random(seed), m_functions(4) {
        for (fake::ScriptObject*& function : m_functions) {
            function = browser().function("f", [this] { actInside(); });
        }
        create();
    }

    ~Chaos() { m_depth = 100; } // functions do nothing any more

    void step() {
        fake::failAllocation(chance(10) ? pick(6) + 1 : 0);
        act();
        fake::failAllocation(0);
        if (chance(4)) {
            browser().deliver();
        }
        if (m_videos.empty()) {
            create();
        }
        forgetLog();
        happened();
    }

private:
    int pick(size_t count) { return static_cast<int>(m_random() % count); }
    bool chance(size_t oneIn) { return pick(oneIn) == 0; }
    template <class Choices> auto& oneOf(const Choices& choices) { return choices.begin()[pick(choices.size())]; }
    template <class Choice> Choice pick(std::initializer_list<Choice> choices) { return oneOf(choices); }

    void create() { m_videos.push_back(std::make_unique<Video>(chance(9) ? Video::Constructed : Video::Initialised)); }

    void destroy() {
        const std::unique_ptr<Video> going = std::move(m_videos.back());
        m_videos.pop_back();
    }

    // What a function of the page does when it is called: anything, not too deep.
    void actInside() {
        if (m_depth < 3 && !m_videos.empty()) {
            ++m_depth;
            act();
            --m_depth;
        }
    }

    std::string words() {
        std::string made =
            pick<const char*>({"http://tv.example/", "infinite", "12", "src:a srclang:x laber:", "/", ""});
        made.resize(pick<size_t>({made.size(), 0, 4, 5, 7, 8, 100, 1023, 1024, 1025, 2047, 2048, 5000}), 'w');
        return made;
    }

    Value value() {
        NPObject* function = oneOf(m_functions);
        const double number =
            pick({0.0, 1.0, -1.0, 0.5, 1280.0, 7e9, -7e9, 1e300, notANumber, std::numeric_limits<double>::infinity()});
        return pick<Value>({number, pick({0, 1, 2, 3, 6, -1, std::numeric_limits<int>::min()}), words(), nullptr,
                            Value(), chance(2), browser().element, function, function});
    }

    void act() {
        Video& video = *oneOf(m_videos);
        const int action = pick(13);
        if (action == 0 && chance(8)) {
            destroy();
        } else if (action == 1 && chance(8) && m_videos.size() < 3) {
            create();
        } else if (action <= 3) {
            report(video);
        } else if (action == 4 && chance(5)) {
            changeWorld();
        } else if (video->m_pNpVarProperties) { // else the framework asks nothing of it
            script(video, action);
        }
    }

    void script(Video& video, int action) {
        static const std::vector<std::string> properties = ::words(
            "data playPosition playTime playState error speed width height id fullScreen loop cache onfocus none "
            "onDRMRightsError onPlayStateChange onPlaySpeedChanged onPlayPositionChanged onFullScreenChange "
            "onSelectedComponentChanged onParentalRatingChange");
        const std::string& property = oneOf(properties);
        if (action == 5) {
            video.read(property);
        } else if (action <= 7) {
            video.write(property, value());
        } else if (action == 8) {
            video.param(pick<const char*>({"id", "type", "data", "width", "height", "cache", "loop", "subtitles"}),
                        words());
        } else if (action == 9) {
            NPWindow window = {nullptr, pick(3), 0, pick({1280u, 640u}), pick({720u, 360u}), {}, nullptr, {}};
            video->setWindow(nullptr, &window);
        } else if (action == 10) {
            const char* const method = chance(4) ? "removeEventListener" : "addEventListener";
            video.call(method, {oneOf(listenerTypes), oneOf(m_functions)});
        } else {
            video.call(pick<const char*>({"play", "stop", "seek", "setVolume", "queue", "queue", "setFullScreen",
                                          "focus", "getComponents", "selectComponent", "unselectComponent",
                                          "getPluginElement", "getSinkProtocolInfo"}),
                       Arguments(static_cast<size_t>(pick(3)), value()));
        }
    }

    void report(Video& video) {
        if (video->m_hPlayer != -1) {
            const auto& player = television().players.at(video->m_hPlayer);
            player.callback(7, static_cast<eMEDIA_CALLBACK_EVENT>(pick(14)), pick(9), chance(2) ? malloc(8) : nullptr,
                            player.userData);
        }
    }

    void changeWorld() {
        browser().objects = pick({fake::Browser::Gives, fake::Browser::Refuses, fake::Browser::GivesNull});
        television().opens = !chance(4);
        television().position = pick(3) - 1;
        television().duration = pick({60000, 0, -1});
        television().refused = {pick<const char*>({"Play", "Pause", "Resume", "", ""}),
                                pick<const char*>({"Stop", "Seek", "SetWindow", "", ""})};
    }

    std::mt19937 m_random;
    int m_depth = 0;
    std::vector<fake::ScriptObject*> m_functions;
    std::vector<std::unique_ptr<Video>> m_videos;
};

} // namespace

using Robustness = AvControl;

TEST_F(Robustness, WhateverAPageDoesNothingIsLostAndNothingBreaks) {
    Chaos chaos(20240611);
    for (int i = 0; i < 20000 && !HasFailure(); ++i) {
        chaos.step();
    }
}

TEST_F(Robustness, AnyOneAllocationMayFailInALifeOfAnObject) {
    int nth = 0;
    do {
        ++nth;
        SCOPED_TRACE("allocation " + std::to_string(nth));
        fake::ScriptObject* f = browser().function("f");
        fake::failAllocation(nth);
        Video object;
        object.param("data", "film.mp4");
        object.param("subtitles", "src:a");
        object.write("data", "http://tv.example/other.mp4");
        object.write("onPlayStateChange", f);
        object.write("width", 640);
        object.write("id", "identity");
        object.call("addEventListener", {"PlayPositionChanged", f});
        object.call("play");
        object.call("queue", {"http://tv.example/next.mp4"});
        object.call("seek", {1e6});
        browser().deliver();
        for (const auto event : {eMEDIA_CALLBACK_PLAYING, eMEDIA_CALLBACK_POSITION_CHANGED, eMEDIA_CALLBACK_FINISHED}) {
            object.report(event);
        }
        object.call("getSinkProtocolInfo");
        object.call("getComponents");
        object.call("focus");
        object.call("setFullScreen", {true});
        object.call("removeEventListener", {"PlayPositionChanged", f});
        object.read("data");
        object.call("stop");
        browser().deliver();
        object.destroy();
        happened();
    } while (fake::countAllocations() >= nth);
    EXPECT_GT(nth, 40);
}
