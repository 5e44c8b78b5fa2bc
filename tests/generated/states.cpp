// The states, operations and actions of the generated tests.
#include "scene.h"
#include "script_objects.h"

#include "HbbTVPluginTrace.h"

#include <map>
#include <sstream>

using fake::browser;
using fake::Element;
using fake::Value;

namespace {

constexpr char ABSOLUTE_URL[] = "http://tv.example/film.mp4";
constexpr char RELATIVE_URL[] = "film.mp4";

constexpr char PROPERTIES[] =
    "COMPONENT_TYPE_VIDEO COMPONENT_TYPE_AUDIO COMPONENT_TYPE_SUBTITLE data playPosition playTime playState error "
    "speed nrTracks currentTrackIndex persist width height fullScreen id cache loop ";
constexpr char HANDLERS[] =
    "onPlayStateChange onPlaySpeedChanged onPlayPositionChanged onFullScreenChange onfocus onblur onDRMRightsError "
    "onSelectedComponentChange onSelectedComponentChanged onComponentChanged onParentalRatingChange ";
constexpr char METHODS[] =
    "play stop seek setVolume next previous getSinkProtocolInfo getTransportStateVariables setTransportStateVariables "
    "setFullScreen focus queue getComponents getCurrentActiveComponents selectComponent unselectComponent "
    "getPluginType getMediaHandle getPluginElement noSuchMethod ";
constexpr char LISTENERS[] = "PlayStateChange SelectedComponentChange PlayPositionChanged PlaySpeedChanged "
                             "FullScreenChange focus blur DRMRightsError ComponentChanged ParentalRatingChange ";
constexpr char ATTRIBUTES[] = "id type data width height style cache loop subtitles captions ";

std::vector<std::string> words(const std::string& list) {
    std::istringstream in(list);
    return {std::istream_iterator<std::string>(in), {}};
}

using Maker = std::function<Value(Scene&)>;

/// Values that script may pass, by their names.
const std::map<std::string, Maker>& values() {
    static const std::map<std::string, Maker> all = {{"null", [](Scene&) { return Value(nullptr); }},
                                                     {"true", [](Scene&) { return Value(true); }},
                                                     {"0", [](Scene&) { return Value(0.0); }},
                                                     {"1", [](Scene&) { return Value(1.0); }},
                                                     {"'film.mp4'", [](Scene&) { return Value(RELATIVE_URL); }},
                                                     {"'http:'", [](Scene&) { return Value(ABSOLUTE_URL); }},
                                                     {"g", [](Scene& scene) { return Value(scene.otherFunction()); }}};
    return all;
}

void handle(Scene& scene) {
    for (const std::string& name : words(HANDLERS)) {
        scene.element().set(name, scene.function());
    }
}

void listen(Scene& scene, const char* method, fake::ScriptObject* function) {
    for (const std::string& type : words(LISTENERS)) {
        scene.element().call(method, {type, function});
    }
}

void play(Scene& scene, const char* url) {
    scene.element().show();
    scene.element().set("data", url);
    scene.element().call("play", {1.0});
    scene.report(eMEDIA_CALLBACK_PLAYING);
    scene.deliver();
}

/// Hides the object and shows it again: the engine makes another instance for the element.
void remake(Scene& scene) {
    scene.element().hide();
    scene.element().show();
}

/// Calls a method for a component, of which script then holds nothing any more.
void withComponent(Scene& scene, const char* method) {
    NPVariant components;
    if (!scene.element().call("getComponents", {0.0}, &components)) {
        return;
    }
    NPVariant component;
    VOID_TO_NPVARIANT(component);
    const Value index(0);
    if (NPVARIANT_IS_OBJECT(components) &&
        fake::callMethod(NPVARIANT_TO_OBJECT(components), fake::identifier("item"), &index.variant(), 1, &component) &&
        NPVARIANT_IS_OBJECT(component)) {
        scene.element().call(method, {Value(NPVARIANT_TO_OBJECT(component))});
    }
    fake::releaseValue(&component);
    fake::releaseValue(&components);
}

void addScriptOperations(std::vector<Step>& all) {
    for (const std::string& name : words(std::string(PROPERTIES) + HANDLERS)) {
        all.push_back({"read " + name, [=](Scene& scene) { scene.element().get(name); }});
        for (const auto& [text, make] : values()) {
            all.push_back(
                {name + " = " + text, [=, make = make](Scene& scene) { scene.element().set(name, make(scene)); }});
        }
    }
    for (const std::string& name : words(METHODS)) {
        all.push_back({name + "()", [=](Scene& scene) { scene.element().call(name); }});
        for (const auto& [text, make] : values()) {
            all.push_back({name + "(" + text + ")",
                           [=, make = make](Scene& scene) { scene.element().call(name, {make(scene)}); }});
        }
    }
    for (const char* method : {"addEventListener", "removeEventListener"}) {
        for (const std::string& type : words(LISTENERS)) {
            all.push_back({method + ("(" + type + ")"), [=](Scene& scene) {
                               scene.element().call(method, {type, scene.otherFunction()});
                           }});
        }
        all.push_back({method + std::string("(true, f)"), [=](Scene& scene) {
                           scene.element().call(method, {true, scene.function(), false});
                       }});
    }
    for (const char* method : {"selectComponent", "unselectComponent"}) {
        all.push_back({method + std::string("(component)"), [=](Scene& scene) { withComponent(scene, method); }});
    }
}

void addEngineOperations(std::vector<Step>& all) {
    for (const std::string& name : words(ATTRIBUTES)) {
        for (const char* value : {RELATIVE_URL, ABSOLUTE_URL, "7", "video/mp4", "src:a.vtt srclang:deu"}) {
            all.push_back({"<object " + name + "='" + value + "'>",
                           [=](Scene& scene) {
                               scene.another({{name, value}}).show();
                           },
                           true});
        }
    }
    for (int event = 0; event <= eMEDIA_CALLBACK_MAX; ++event) {
        all.push_back({"report " + std::to_string(event), [=](Scene& scene) { scene.report(event, 1); }});
    }
    all.push_back({"hide", [](Scene& scene) { scene.element().hide(); }});
    all.push_back({"show", [](Scene& scene) { scene.element().show(); }, true});
    all.push_back({"hide and show", remake, true});
    all.push_back({"move", [](Scene& scene) { scene.element().layOut(10, 20, 640, 360); }});
    all.push_back({"fill the screen", [](Scene& scene) { scene.element().layOut(0, 0, 1280, 720); }});
    all.push_back({"move and paint", [](Scene& scene) {
                       scene.element().object()->properties["clientLeft"] = 3;
                       scene.element().paint();
                   }});
    all.push_back({"move and play", [](Scene& scene) {
                       scene.element().layOut(10, 20, 320, 180);
                       scene.element().call("play", {1.0});
                   }});
    all.push_back({"wait", [](Scene&) {}});
}

} // namespace

std::vector<std::string> propertyNames() {
    return words(std::string(PROPERTIES) + HANDLERS);
}

const std::vector<Step>& states() {
    static const std::vector<Step> all = {
        {"new",
         [](Scene& scene) {
             scene.element().set("onPlayStateChange", scene.function()); // while there is no instance
             scene.element().set("loop", 2.0);
             scene.element().show();
         }},
        {"stopped",
         [](Scene& scene) {
             scene.element().show();
             scene.element().set("data", RELATIVE_URL);
             handle(scene);
             scene.element().call("addEventListener", {"PlaySpeedChanged", scene.function()});
             scene.deliver();
             remake(scene);
         }},
        {"playing",
         [](Scene& scene) {
             play(scene, ABSOLUTE_URL);
             handle(scene);
             scene.element().call("queue", {RELATIVE_URL});
         }},
        {"paused, with listeners",
         [](Scene& scene) {
             hbbtvPluginTraceSetCallback([](const HbbTVPluginTraceEntry*, void*) {}, nullptr);
             play(scene, RELATIVE_URL);
             listen(scene, "addEventListener", scene.function());
             scene.element().set("loop", 3.0);
             scene.element().call("play", {0.0});
             scene.deliver();
         }},
        {"full-screen, ended", [](Scene& scene) {
             scene.another().show();
             play(scene, ABSOLUTE_URL);
             scene.element().call("setFullScreen", {true});
             handle(scene);
             listen(scene, "addEventListener", scene.function());
             listen(scene, "removeEventListener", scene.function());
             scene.report(eMEDIA_CALLBACK_FINISHED);
             scene.deliver();
         }}};
    return all;
}

const std::vector<Step>& operations() {
    static const std::vector<Step> all = [] {
        std::vector<Step> made;
        addScriptOperations(made);
        addEngineOperations(made);
        return made;
    }();
    return all;
}

// NOLINTNEXTLINE(readability-function-size): a table of the actions
const std::vector<Action>& actions() {
    const auto set = [](const char* name, const char* value) {
        return Action{{std::string(name) + " = " + value,
                       [=](Scene& scene) { scene.element().set(name, values().at(value)(scene)); }},
                      false};
    };
    const auto call = [](const char* name, const char* value) {
        return Action{{name + (std::string("(") + value + ")"),
                       [=](Scene& scene) { scene.element().call(name, {values().at(value)(scene)}); }},
                      false};
    };
    const auto action = [](const char* name, const std::function<void(Scene&)>& run) {
        return Action{{name, run}, false};
    };
    static const std::vector<Action> all = {
        action("hide", [](Scene& scene) { scene.element().hide(); }),
        action("hide and show", remake),
        action("hide, show another",
               [](Scene& scene) {
                   scene.element().hide();
                   scene.another().show();
               }),
        action("hide and deliver",
               [](Scene& scene) {
                   scene.element().hide();
                   scene.deliver();
               }),
        action("deliver", [](Scene& scene) { scene.deliver(); }),
        action("report the end and deliver",
               [](Scene& scene) {
                   scene.report(eMEDIA_CALLBACK_FINISHED);
                   scene.deliver();
               }),
        action("report an error", [](Scene& scene) { scene.report(eMEDIA_CALLBACK_ERROR, 2); }),
        action("play after a move",
               [](Scene& scene) {
                   scene.element().layOut(5, 5, 320, 180);
                   scene.element().call("play", {1.0});
               }),
        action("fill the screen", [](Scene& scene) { scene.element().layOut(0, 0, 1280, 720); }),
        action("listen", [](Scene& scene) { listen(scene, "addEventListener", scene.otherFunction()); }),
        action("stop listening", [](Scene& scene) { listen(scene, "removeEventListener", scene.function()); }),
        action("components change",
               [](Scene& scene) {
                   fake::television().components.resize(1);
                   withComponent(scene, "selectComponent");
               }),
        action("stop()", [](Scene& scene) { scene.element().call("stop"); }),
        action("focus()", [](Scene& scene) { scene.element().call("focus"); }),
        Action{{"remove the frame",
                [](Scene& scene) {
                    for (Element* element : scene.elements()) {
                        element->hide();
                    }
                    scene.dropFrame();
                }},
               true},
        Action{{"remove the frame, keep the instance", [](Scene& scene) { scene.dropFrame(); }}, true},
        call("play", "0"),
        call("queue", "'film.mp4'"),
        call("queue", "'http:'"),
        call("queue", "null"),
        call("seek", "1"),
        call("setFullScreen", "true"),
        set("data", "'film.mp4'"),
        set("data", "'http:'"),
        set("data", "null"),
        set("onPlayStateChange", "g"),
        set("onPlayStateChange", "null"),
        set("onFullScreenChange", "g"),
        set("width", "1"),
        set("loop", "1")};
    return all;
}
