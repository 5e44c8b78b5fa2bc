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
    const std::pair<const char*, const char*> rows[] = {{"next", "false"},
                                                        {"previous", "false"},
                                                        {"getSinkProtocolInfo", "\"undefined\""},
                                                        {"getTransportStateVariables", "\"undefined\""},
                                                        {"setTransportStateVariables", "\"undefined\""},
                                                        {"getPluginType", "7"},
                                                        {"getMediaHandle", "7"},
                                                        {"getPluginElement", "[element]"}};
    for (const auto& [name, answer] : rows) {
        EXPECT_EQ(answer, video().call(name));
        EXPECT_EQ(answer, video().call(name, {1, "2", nullptr}));
    }
    EXPECT_EQ("", delivered());
    browser().objects = fake::Browser::Refuses;
    EXPECT_EQ("null", video().call("getPluginElement"));
    browser().objects = fake::Browser::GivesNull;
    EXPECT_EQ("null", video().call("getPluginElement"));
}

TEST_F(Methods, ComponentQueriesTakeATypeOrNothing) {
    const std::string wrongType = "Wrong input argument type", wrongValue = "Wrong input argument value";
    const struct {
        Value type;
        std::string refusal;
    } rows[] = {{0, ""},
                {1.9, ""},
                {2, ""},
                {-0.5, ""},
                {-1, wrongValue},
                {-1e300, wrongValue},
                {3, "Unsupported component type: 3"},
                {2147483648.5, "Unsupported component type: 2147483647"},
                {"1", wrongType},
                {true, wrongType},
                {Undefined(), wrongType},
                {notANumber, wrongType}};
    for (const auto& row : rows) {
        SCOPED_TRACE(text(row.type));
        forgetLog();
        for (const char* method : {"getComponents", "getCurrentActiveComponents"}) {
            EXPECT_EQ(row.refusal.empty() ? "[object]" : "null", video().call(method, {row.type}));
            EXPECT_EQ("(untouched)", video().call(method, {row.type, 2}));
        }
        const std::vector<std::string> lines(row.refusal.empty() ? 0 : 2, row.refusal);
        EXPECT_EQ(lines, errorLines());
    }
    for (const Arguments& nothing : {Arguments{}, Arguments{nullptr}}) {
        forgetLog();
        EXPECT_EQ("[object]", video().call("getComponents", nothing));
        EXPECT_EQ("null", video().call("getCurrentActiveComponents", nothing));
        EXPECT_EQ(std::vector<std::string>{wrongType}, errorLines());
    }
}

TEST_F(Methods, SelectionByTypeGoesToThePlayerUnjudged) {
    for (const Value& type : {Value(1.7), Value(5), Value(-1)}) {
        video().call("selectComponent", {type, "surplus"});
        video().call("unselectComponent", {type});
    }
    EXPECT_EQ("7.SelectDefaultAVComponent(1) 7.UnselectAVComponentByType(1) 7.SelectDefaultAVComponent(5) "
              "7.UnselectAVComponentByType(5) 7.SelectDefaultAVComponent(-1) 7.UnselectAVComponentByType(-1)",
              happened());
    for (const Arguments& nothing : {Arguments{}, Arguments{"1"}, Arguments{true}, Arguments{nullptr}}) {
        EXPECT_EQ("(untouched)", video().call("selectComponent", nothing));
        EXPECT_EQ("(untouched)", video().call("unselectComponent", nothing));
    }
    EXPECT_EQ(0u, errorLines().size());
    video().call("selectComponent", {notANumber});
    EXPECT_EQ("", happened());
    video().call("unselectComponent", {1e300});
}

TEST_F(Methods, ForeignObjectsAreNoComponents) {
    NPObject* event = video()->getDOMEventClass()->getAVControlDOMEventNPObject();
    for (const Value& object : {Value(browser().bareObject()), Value(browser().element), Value(event)}) {
        EXPECT_EQ("(untouched)", video().call("selectComponent", {object}));
        EXPECT_EQ("(untouched)", video().call("unselectComponent", {object}));
    }
    EXPECT_EQ(6, logged(5, "Wrong object type !\n"));
    NPVariant none;
    OBJECT_TO_NPVARIANT(nullptr, none);
    video()->SelectComponent(none);
    video()->UnSelectComponent(Value(1).variant());
    EXPECT_EQ(1, logged(5, "Wrong input argument type !\n"));
    EXPECT_EQ("", happened());
}
