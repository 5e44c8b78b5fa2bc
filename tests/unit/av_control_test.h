/** Ground of the tests: a page with A/V Control objects on the scripted platform. */
#ifndef AV_CONTROL_TEST_H
#define AV_CONTROL_TEST_H

#include "allocations.h"
#include "fake_browser.h"
#include "fake_player.h"
#include "journal.h"
#include "log_capture.h"

#include <gtest/gtest.h>

#include "VideoPlugin.h"

#include <functional>
#include <initializer_list>
#include <limits>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

using fake::Arguments;
using fake::browser;
using fake::errorLines;
using fake::happened;
using fake::identifier;
using fake::logged;
using fake::television;
using fake::text;
using fake::Value;

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/** @return the words of a list that blanks separate */
std::vector<std::string> words(const std::string& list);

/** An A/V Control object as the framework drives it. Its handle with the television is 7, 8, ... in order of making. */
class Video {
public:
    enum Start { Initialised, Constructed };
    explicit Video(Start start = Initialised);
    ~Video() { destroy(); }

    VideoPlugin* operator->() { return m_plugin; }
    VideoPlugin* plugin() { return m_plugin; }
    void initialize();

    /** Ends the object, also from inside its own calls. */
    void destroy();

    /** @return the property as text, or "(none)" when the read fails */
    std::string read(const std::string& name);

    /** @return what the slot holds, without asking the object */
    std::string slot(int property) { return text(m_plugin->m_pNpVarProperties[property]); }

    bool write(const std::string& name, const Value& value);

    /** @return the result as text; "(untouched)" when the method left it alone, "(refused)" when the call failed */
    std::string call(const std::string& name, const Arguments& arguments = {});

    bool param(const std::string& name, const std::string& value);

    /** @return the parameter, or "(none)" */
    std::string param(const std::string& name);

    /** The player reports, and the plug-in thread hears of it at once. */
    void report(eMEDIA_CALLBACK_EVENT event, int code = 0);

    /** Puts the object into a state without any of the effects that lead there. */
    void is(int state) { m_plugin->SetPlayState(state); }

private:
    int m_handle; // the player's, as at construction
    NPP_t m_npp;
    VideoPlugin* m_plugin;
};

class AvControl : public ::testing::Test {
protected:
    AvControl();
    ~AvControl() override;

    /** The first object of the page, initialised. */
    Video& video() { return *m_videos.front(); }

    /** Another object on the page. */
    Video& another(Video::Start start = Video::Initialised);

    /** Sets a handler property to a function of that name. */
    fake::ScriptObject* handler(const std::string& property, const std::function<void()>& body = nullptr);

    /** Registers a listener, a function called "listener". */
    fake::ScriptObject* listener(const std::string& type, const std::function<void()>& body = nullptr);

    /** Delivers what is queued. @return what happened since last asked */
    std::string delivered();

    /** The first object's player reports. @return what happened since last asked */
    std::string reported(eMEDIA_CALLBACK_EVENT event, int code = 0);

    std::vector<std::unique_ptr<Video>> m_videos;
};

/** The types of addEventListener, by ListenerNames_e. */
extern const std::vector<std::string> listenerTypes;

/** Each of these lines was written exactly once, as an ordinary one. */
inline void expectLogged(std::initializer_list<const char*> lines) {
    for (const char* line : lines) {
        EXPECT_EQ(1, logged(2, line)) << line;
    }
}
inline void forgetLog() {
    fake::log() = {};
}

#endif
