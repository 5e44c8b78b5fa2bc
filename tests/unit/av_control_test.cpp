#include "av_control_test.h"

#include <iterator>
#include <sstream>
#include <utility>

const std::vector<std::string> listenerTypes =
    words("PlayStateChange SelectedComponentChange PlayPositionChanged PlaySpeedChanged FullScreenChange focus blur "
          "DRMRightsError ComponentChanged ParentalRatingChange");

std::vector<std::string> words(const std::string& list) {
    std::istringstream in(list);
    return {std::istream_iterator<std::string>(in), {}};
}

Video::Video(Start start) : m_handle(television().nextHandle), m_npp(), m_plugin(new VideoPlugin(nullptr)) {
    if (start == Initialised) {
        initialize();
    }
}

void Video::initialize() {
    EXPECT_TRUE(m_plugin->initialize(nullptr, &m_npp, NP_EMBED, 0, nullptr, nullptr, nullptr));
}

void Video::destroy() {
    delete std::exchange(m_plugin, nullptr);
}

std::string Video::read(const std::string& name) {
    NPVariant result;
    VOID_TO_NPVARIANT(result);
    return m_plugin->getProperty(identifier(name), &result) ? fake::taken(result) : "(none)";
}

bool Video::write(const std::string& name, const Value& value) {
    return m_plugin->setProperty(identifier(name), &value.variant());
}

std::string Video::call(const std::string& name, const Arguments& arguments) {
    std::vector<NPVariant> variants;
    for (const Value& argument : arguments) {
        variants.push_back(argument.variant());
    }
    NPVariant result;
    DOUBLE_TO_NPVARIANT(4711.25, result);
    if (!m_plugin->invoke(browser().element, identifier(name), variants.data(), static_cast<uint32_t>(variants.size()),
                          &result)) {
        return "(refused)";
    }
    const std::string value = fake::taken(result);
    return value == "4711.25" ? "(untouched)" : value;
}

bool Video::param(const std::string& name, const std::string& value) {
    return m_plugin->setParam(const_cast<char*>(name.c_str()), const_cast<char*>(value.c_str()));
}

std::string Video::param(const std::string& name) {
    char value[HBBTV_PARAM_VALUE_SIZE] = "";
    return m_plugin->getParam(const_cast<char*>(name.c_str()), value) ? value : "(none)";
}

void Video::report(eMEDIA_CALLBACK_EVENT event, int code) {
    television().report(m_handle, event, code, ::malloc(16));
    browser().deliver();
}

AvControl::AvControl() {
    fake::failAllocation(0);
    forgetLog();
    television() = {};
    browser().reset();
    another();
    fake::happened();
}

AvControl::~AvControl() {
    fake::failAllocation(0);
    m_videos.clear();
    browser().finish();
    EXPECT_EQ(0u, television().players.size()) << "players left open";
    fake::happened();
}

Video& AvControl::another(Video::Start start) {
    m_videos.push_back(std::make_unique<Video>(start));
    return *m_videos.back();
}

fake::ScriptObject* AvControl::handler(const std::string& property, const std::function<void()>& body) {
    fake::ScriptObject* made = browser().function(property, body);
    EXPECT_TRUE(video().write(property, made));
    return made;
}

fake::ScriptObject* AvControl::listener(const std::string& type, const std::function<void()>& body) {
    fake::ScriptObject* made = browser().function("listener", body);
    EXPECT_EQ("(untouched)", video().call("addEventListener", {type, made}));
    return made;
}

std::string AvControl::delivered() {
    browser().deliver();
    return happened();
}

std::string AvControl::reported(eMEDIA_CALLBACK_EVENT event, int code) {
    video().report(event, code);
    return happened();
}
