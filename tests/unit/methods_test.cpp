#include "av_control_test.h"

#include "HbbTVClasses/HbbTVAVControlDOMEventClass.h"

using Methods = AvControl;

TEST_F(Methods, TwentyOneNamesAreMethods) {
    int index = 0;
    for (const std::string& name : words(
             "play stop seek setVolume next previous getSinkProtocolInfo getTransportStateVariables "
             "setTransportStateVariables setFullScreen focus queue addEventListener removeEventListener getComponents "
             "getCurrentActiveComponents selectComponent unselectComponent getPluginType getMediaHandle "
             "getPluginElement")) {
        EXPECT_TRUE(video()->hasMethod(identifier(name))) << name;
        EXPECT_NE("(refused)", video().call(name)) << name;
        EXPECT_EQ(1, logged(2, "invoke: " + name + " " + std::to_string(index++) + "\n"));
    }
    for (const char* name : {"Play", "pause", "", "data", "onfocus"}) {
        EXPECT_FALSE(video()->hasMethod(identifier(name))) << name;
        EXPECT_EQ("(refused)", video().call(name)) << name;
    }
    EXPECT_EQ(5, logged(2, "Invoke function is not exist\n"));
}

TEST_F(Methods, SomeAnswersNeverChange) {
    const std::pair<const char*, const char*> rows[] = {
        {"false", "next previous"},
        {"\"undefined\"", "getSinkProtocolInfo getTransportStateVariables setTransportStateVariables"},
        {"7", "getPluginType getMediaHandle"},
        {"[element]", "getPluginElement"}};
    for (const auto& [answer, names] : rows) {
        for (const std::string& name : words(names)) {
            EXPECT_EQ(answer, video().call(name));
            EXPECT_EQ(answer, video().call(name, {1, "2", nullptr}));
        }
    }
    EXPECT_EQ("", delivered());
    browser().objects = fake::Browser::Refuses;
    EXPECT_EQ("null", video().call("getPluginElement"));
    browser().objects = fake::Browser::GivesNull;
    EXPECT_EQ("null", video().call("getPluginElement"));
}

TEST_F(Methods, ComponentQueriesTakeATypeOrNothing) {
    const std::string wrongType = "Wrong input argument type", wrongValue = "Wrong input argument value";
    const std::pair<Value, std::string> rows[] = {{-0.5, ""},       {2, ""},
                                                  {-1, wrongValue}, {3, "Unsupported component type: 3"},
                                                  {"1", wrongType}, {notANumber, wrongType}};
    for (const auto& [type, refusal] : rows) {
        SCOPED_TRACE(text(type));
        forgetLog();
        for (const char* method : {"getComponents", "getCurrentActiveComponents"}) {
            EXPECT_EQ(refusal.empty() ? "[object]" : "null", video().call(method, {type}));
            EXPECT_EQ("(untouched)", video().call(method, {type, 2}));
        }
        EXPECT_EQ(std::vector<std::string>(refusal.empty() ? 0 : 2, refusal), errorLines());
    }
    for (const Arguments& nothing : {Arguments{}, Arguments{nullptr}}) {
        forgetLog();
        EXPECT_EQ("[object]", video().call("getComponents", nothing));
        EXPECT_EQ("null", video().call("getCurrentActiveComponents", nothing));
        EXPECT_EQ(std::vector<std::string>{wrongType}, errorLines());
    }
}

TEST_F(Methods, SelectionByTypeGoesToThePlayerUnjudged) {
    for (const Value& type : Arguments{1.7, -1}) {
        video().call("selectComponent", {type, "surplus"});
        video().call("unselectComponent", {type});
    }
    EXPECT_EQ("7.SelectDefaultAVComponent(1) 7.UnselectAVComponentByType(1) "
              "7.SelectDefaultAVComponent(-1) 7.UnselectAVComponentByType(-1)",
              happened());
    for (const Arguments& nothing : {Arguments{}, Arguments{"1"}, Arguments{true}, Arguments{nullptr}}) {
        EXPECT_EQ("(untouched)", video().call("selectComponent", nothing));
        EXPECT_EQ("(untouched)", video().call("unselectComponent", nothing));
    }
    EXPECT_EQ(0u, errorLines().size());
    video().call("selectComponent", {notANumber});
    EXPECT_EQ("", happened());
}

TEST_F(Methods, ForeignObjectsAreNoComponents) {
    NPObject* event = video()->getDOMEventClass()->getAVControlDOMEventNPObject();
    for (const Value& object : Arguments{browser().bareObject(), browser().element, event}) {
        EXPECT_EQ("(untouched)", video().call("selectComponent", {object}));
        EXPECT_EQ("(untouched)", video().call("unselectComponent", {object}));
    }
    EXPECT_EQ(6, logged(5, "Wrong object type !\n"));
    video()->SelectComponent(Value(static_cast<NPObject*>(nullptr)).variant());
    video()->UnSelectComponent(Value(1).variant());
    EXPECT_EQ(1, logged(5, "Wrong input argument type !\n"));
    EXPECT_EQ("", happened());
}
