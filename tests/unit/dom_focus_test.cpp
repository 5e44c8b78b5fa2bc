#include "av_control_test.h"

using DomFocus = AvControl;

const char* const raised = "document.createEvent(\"HTMLEvents\") dom event.initEvent(\"focus\",false,false) "
                           "element.dispatchEvent([dom event])";

static fake::Function ends(Video& object, const Value& answer) {
    return [&object, answer](auto...) {
        object.destroy();
        return answer;
    };
}

TEST_F(DomFocus, RaisesAFocusEventOnTheElement) {
    handler("onfocus");
    listener("focus");
    EXPECT_EQ("undefined", video().call("focus"));
    EXPECT_EQ(raised, happened()) << "and calls neither handler nor listener";
    EXPECT_EQ(1, logged(2, " FROM : VideoPlugin::dispatchDomEvent ### EventType focus\n\n"));
    EXPECT_TRUE(video()->DispatchDomEvent(FULLSCREEN_CHANGE, browser().element));
    EXPECT_EQ(raised, happened()) << "the type is always focus";
    EXPECT_EQ(1, logged(2, " FROM : VideoPlugin::dispatchDomEvent ### EventType FullscreenChange\n\n"));
    for (const int wild : {-1, 4, 1000000}) {
        EXPECT_TRUE(video()->DispatchDomEvent(wild, browser().element));
    }
    happened();
}

TEST_F(DomFocus, SaysWhetherTheEventWasCancelled) {
    for (const Value& answer : Arguments{true, 0, "false", browser().document, false}) {
        browser().element->methods["dispatchEvent"] = [answer](auto...) { return answer; };
        EXPECT_EQ("undefined", video().call("focus"));
    }
    browser().element->methods.clear();
    EXPECT_EQ("undefined", video().call("focus"));
    EXPECT_EQ(1, logged(2, "canceled\n\n"));
    EXPECT_EQ(5, logged(2, "not canceled\n\n"));
}

TEST_F(DomFocus, StopsAtWhateverIsMissingAndGivesBackTheRest) {
    auto& createEvent = browser().document->methods["createEvent"];
    const std::function<void()> losses[] = {[&] { createEvent = [](auto...) { return Value("no object"); }; },
                                            [&] { createEvent = [](auto...) { return Value(nullptr); }; },
                                            [] { browser().document->methods.clear(); },
                                            [] { browser().window->properties["document"] = "text"; },
                                            [] { browser().window->properties["document"] = nullptr; },
                                            [] { browser().window->properties.clear(); },
                                            [] { browser().objects = fake::Browser::GivesNull; },
                                            [] { browser().objects = fake::Browser::Refuses; }};
    for (const auto& lose : losses) {
        lose();
        forgetLog();
        EXPECT_EQ("undefined", video().call("focus"));
        EXPECT_GE(errorLines().size(), 1u);
        EXPECT_EQ(std::string::npos, happened().find("dispatchEvent"));
    }
}

TEST_F(DomFocus, EveryScriptOnTheWayMayEndTheObject) {
    for (fake::Function* script :
         {&browser().document->methods["createEvent"], &browser().domEvent->methods["initEvent"],
          &browser().element->methods["dispatchEvent"]}) {
        Video& object = another();
        *script = ends(object, Value(browser().domEvent));
        EXPECT_EQ("undefined", object.call("focus"));
    }
    for (const char* size : {"width", "height"}) {
        Video& object = another();
        browser().element->methods["setAttribute"] = ends(object, nullptr);
        EXPECT_TRUE(object.write(size, 5));
    }
}
