/**
 * The places at which the libraries under test call the platform. A test may have something happen at each, and may
 * have the platform answer otherwise than it should.
 */
#ifndef POINTS_H
#define POINTS_H

#include "npapi/npruntime.h"

#include <functional>
#include <limits>
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
    /**
     * @param detail    what the call names: a property or a method
     * @param oddities  how many odd answers the function can give
     */
    explicit Point(const char* function, Reach reach = Reach::Nothing, NPIdentifier detail = nullptr, int oddities = 0);
    Point(const Point&) = delete;
    Point& operator=(const Point&) = delete;

    Reach reach() const { return m_reach; }
    int oddities() const { return m_oddities; }

    /** The function's answer is to be odd. @param number 1 to oddities() */
    void beOdd(int number) { m_odd = number; }

    /** @return 0 for the usual answer */
    int odd() const { return m_odd; }

    /** @return "NPN_GetProperty(nodeName)" */
    std::string name() const;

    /** Called at each point of the plug-in thread, but not for what the hook itself causes; null for none. */
    static std::function<void(Point&)> hook;

private:
    const char* m_function;
    Reach m_reach;
    NPIdentifier m_detail;
    int m_oddities;
    int m_odd;
};

/** A point that answers with a number. */
class NumberPoint : public Point {
public:
    explicit NumberPoint(const char* function) : Point(function, Reach::Nothing, nullptr, 5) {}

    template <class Number> Number answer(Number usual) const {
        using Limits = std::numeric_limits<Number>;
        const Number answers[] = {usual, 0, 1, -1, Limits::min(), Limits::max()};
        return answers[odd()];
    }
};

} // namespace fake

#endif
