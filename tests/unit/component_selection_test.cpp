/** On a platform that lists its components, unlike the other tests' platform, which lacks that extension. */
#include "av_control_test.h"

#include "AVComponent/HbbTVAudioComponentClass.h"

namespace {

std::vector<Hbbtv_AL_ComponentInfo>& components = television().components;

/** An object of the framework, with a reference of its own. */
class Held {
public:
    explicit Held(NPObject* object) : m_object(object) {}
    Held(const Held&) = delete;
    ~Held() { NPN_ReleaseObject(m_object); }
    operator NPObject*() const { return m_object; }

    std::string read(const char* property) const {
        const NPIdentifier name = identifier(property);
        NPVariant result;
        const bool has = m_object->_class->hasProperty(m_object, name);
        return has && m_object->_class->getProperty(m_object, name, &result) ? fake::taken(result) : "(none)";
    }

    /** @return an item of a collection, null outside */
    Held item(int index) const {
        NPVariant result = Value(static_cast<NPObject*>(nullptr)).variant();
        m_object->_class->getProperty(m_object, NPN_GetIntIdentifier(index), &result);
        return Held(NPVARIANT_TO_OBJECT(result));
    }

private:
    NPObject* m_object;
};

class Components : public AvControl {
protected:
    Components() {
        components = {{AV_COMPONENT_TYPE_VIDEO, 1, 100, -1, 0, "H264", "", 1.78, 0, 0, 0},
                      {AV_COMPONENT_TYPE_AUDIO, 1, 201, 1, 1, "HEAAC", "eng", 0, 1, 6, 0},
                      {AV_COMPONENT_TYPE_AUDIO, 0, 202, 2, 0, "HEAAC", "deu", 0, 0, 2, 0},
                      {AV_COMPONENT_TYPE_SUBTITLE, 0, 301, 1, 0, "", "fra", 0, 0, 0, 1}};
    }

    Held query(const char* method, const Value& type) {
        NPVariant result;
        EXPECT_TRUE(video()->invoke(browser().element, identifier(method), &type.variant(), 1, &result));
        return Held(NPVARIANT_TO_OBJECT(result));
    }
};

} // namespace

TEST_F(Components, AreListedByTypeAndByActivity) {
    const std::tuple<const char*, Value, std::vector<const char*>> rows[] = {
        {"getComponents", 0, {"100"}},
        {"getComponents", 1.0, {"201", "202"}},
        {"getComponents", 2, {"301"}},
        {"getComponents", nullptr, {"100", "201", "202", "301"}},
        {"getCurrentActiveComponents", 0, {"100"}},
        {"getCurrentActiveComponents", 1, {"201"}},
        {"getCurrentActiveComponents", 2.9, {}}};
    for (const auto& [method, type, pids] : rows) {
        SCOPED_TRACE(method + text(type));
        const Held collection = query(method, type);
        int length = 0;
        for (const char* pid : pids) {
            EXPECT_EQ(pid, collection.item(length++).read("pid"));
        }
        EXPECT_EQ(std::to_string(length), collection.read("length"));
        EXPECT_EQ(nullptr, collection.item(length));
        EXPECT_EQ(nullptr, collection.item(-1));
        EXPECT_EQ(static_cast<NPObject*>(collection), query(method, type));
    }
    components.resize(1000, components[1]);
    EXPECT_EQ("256", query("getComponents", 1).read("length"));
}

TEST_F(Components, ShowTheirProperties) {
    const std::vector<std::string> rows[] = {
        // type, encoding, encrypted, componentTag, pid, language, aspectRatio, audioDescription, channels, impaired
        {"0", "\"H264\"", "false", "(none)", "100", "(none)", "1.78", "(none)", "(none)", "(none)"},
        {"1", "\"HEAAC\"", "true", "1", "201", "\"eng\"", "(none)", "true", "6", "(none)"},
        {"1", "\"HEAAC\"", "false", "2", "202", "\"deu\"", "(none)", "false", "2", "(none)"},
        {"2", "\"\"", "false", "1", "301", "\"fra\"", "(none)", "(none)", "(none)", "true"}};
    const Held all = query("getComponents", nullptr);
    for (int i = 0; i < 4; ++i) {
        std::vector<std::string> values;
        for (const char* name : {"type", "encoding", "encrypted", "componentTag", "pid", "language", "aspectRatio",
                                 "audioDescription", "audioChannels", "hearingImpaired"}) {
            values.push_back(all.item(i).read(name));
        }
        EXPECT_EQ(rows[i], values);
    }
}

TEST_F(Components, GoToThePlayerAsTheirRecord) {
    const Held all = query("getComponents", nullptr);
    const std::tuple<int, const char*, int> rows[] = {
        {0, "7.SelectAVVideoComponent() 7.UnselectAVVideoComponent()", 100},
        {2, "7.SelectAVAudioComponent() 7.UnselectAVAudioComponent()", 202},
        {3, "7.SelectAVSubtitleComponent() 7.UnselectAVSubtitleComponent()", 301}};
    for (const auto& [index, commands, pid] : rows) {
        const Held component = all.item(index);
        EXPECT_EQ("(untouched)", video().call("selectComponent", {Value(component)}));
        EXPECT_EQ("(untouched)", video().call("unselectComponent", {Value(component)}));
        EXPECT_EQ(commands, happened());
        EXPECT_EQ(pid, (*static_cast<AVComponent**>(television().component))->pid);
    }
    EXPECT_EQ(1, logged(2, "\nSelectAVAudioComponent\n\n"));
    EXPECT_EQ(0u, errorLines().size());
    EXPECT_EQ("(untouched)", video().call("selectComponent", {Value(all)}));
    EXPECT_EQ(std::vector<std::string>{"Wrong object type !"}, errorLines());
}

TEST_F(Components, CanBeSelectedAgainAfterTheyWereActive) {
    const Held former = query("getCurrentActiveComponents", 1).item(0);
    std::swap(components[1].active, components[2].active);
    EXPECT_EQ("202", query("getCurrentActiveComponents", 1).item(0).read("pid"));
    video().call("selectComponent", {Value(former)});
    EXPECT_EQ("7.SelectAVAudioComponent()", happened());
    EXPECT_EQ("201", former.read("pid"));
}

TEST_F(Components, ThatHaveGoneCannotBeSelected) {
    const Held audio = query("getComponents", 1);
    const Held kept = audio.item(1);
    components.resize(2);
    query("getComponents", 1);
    EXPECT_EQ("1", audio.read("length"));
    Video& other = another();
    happened();
    other.call("selectComponent", {Value(kept)});
    EXPECT_EQ(std::vector<std::string>{"Unable to obtain parent component object !"}, errorLines());
    const Held alone = audio.item(0);
    NPObject* record = alone;
    static_cast<HbbTVAudioComponentClass*>(reinterpret_cast<NPObjectHbbTV*>(record)->objectInstancePtr)
        ->m_AudioComponent = nullptr;
    other.call("selectComponent", {record});
    EXPECT_EQ("Unable to obtain component structure !", errorLines().back());
    video().destroy();
    happened();
    other.call("unselectComponent", {Value(kept)});
    other.call("unselectComponent", {Value(audio)});
    EXPECT_EQ("", happened());
    EXPECT_EQ("0", audio.read("length")) << "a collection outlives its object";
    EXPECT_EQ("(none)", kept.read("pid"));
}
