/**
 * What the generated tests are made of: states in which an object can be, operations on it, and things that a page can
 * do while one of them runs.
 */
#ifndef SCENE_H
#define SCENE_H

#include "fake_browser.h"
#include "fake_player.h"
#include "page.h"

#include <functional>
#include <list>
#include <string>
#include <vector>

/** A page with one object that is tested and room for others. */
class Scene {
public:
    Scene();
    ~Scene();
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

    /** The object that is tested, shown by the state. */
    fake::Element& element() { return m_elements.front(); }

    /** Another element, not yet shown. */
    fake::Element& another(const fake::Element::Attributes& attributes = {{"type", "video/mp4"}});

    std::vector<fake::Element*> elements();

    /** A function of the page that does nothing. */
    fake::ScriptObject* function() { return m_functions[0]; }
    fake::ScriptObject* otherFunction() { return m_functions[1]; }

    /** The players of all objects report, each on a thread of its own. */
    void report(int event, int code = 0);

    /** The frame goes, with its window; the engine may keep the instances for a while. */
    void dropFrame();

    /** Delivers what is queued. */
    void deliver();

    /**
     * Goes on with the object as an application would, until the next media ends.
     * @return all that the page sees of it and the player is asked to do, and what the element holds
     */
    std::string future();

private:
    std::list<fake::Element> m_elements;
    std::vector<fake::ScriptObject*> m_functions;
};

struct Step {
    std::string name;
    std::function<void(Scene&)> run;
    bool makesInstance = false; /**< an instance, too, is made of several things, some of which may fail */
};

/** @return the script properties of the object */
std::vector<std::string> propertyNames();

/** How the object came to be what it is, each from an empty page. */
const std::vector<Step>& states();

/** Methods, properties, attributes, life cycle, reports, windows. */
const std::vector<Step>& operations();

/** What a page can do at a call of the platform that runs script. */
struct Action : Step {
    bool endsFrame; ///< only where script can remove the frame
};
const std::vector<Action>& actions();

#endif
