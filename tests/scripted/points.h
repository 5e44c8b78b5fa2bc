/** The places at which the libraries under test call the platform. A test may have something happen at each. */
#ifndef POINTS_H
#define POINTS_H

#include "npapi/npruntime.h"

#include <functional>
#include <string>

namespace fake {

/** What a page may do while such a call is under way. */
enum class Reach {
    Nothing, /**< the function runs no script */
    Script,  /**< the engine may run script or lay out the page, and so end instances */
    Frame    /**< script may also remove the frame, whose window then goes whatever references are left */
};

/** Lives while a platform function runs. */
class Point {
public:
    /** @param detail what the call names: a property or a method */
    explicit Point(const char* function, Reach reach = Reach::Nothing, NPIdentifier detail = nullptr);
    ~Point();
    Point(const Point&) = delete;
    Point& operator=(const Point&) = delete;

    const char* function() const { return m_function; }
    Reach reach() const { return m_reach; }

    /** @return "NPN_GetProperty(nodeName)" */
    std::string name() const;

    /** Called at each point of the plug-in thread, but not for what the hook itself causes; null for none. */
    static std::function<void(const Point&)> hook;

private:
    const char* m_function;
    Reach m_reach;
    NPIdentifier m_detail;
};

} // namespace fake

#endif
