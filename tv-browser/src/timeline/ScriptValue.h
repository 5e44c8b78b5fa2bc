/**
 * A value that passed between a page's script and a plug-in object.
 */
#ifndef SCRIPTVALUE_H
#define SCRIPTVALUE_H

#include <string>
#include <variant>

namespace tv {

/** The plug-in object has no such property. */
struct NoValue {
    bool operator==(const NoValue&) const { return true; }
};
struct UndefinedValue {
    bool operator==(const UndefinedValue&) const { return true; }
};
struct NullValue {
    bool operator==(const NullValue&) const { return true; }
};
/** An object or a function. */
struct ObjectValue {
    bool operator==(const ObjectValue&) const { return true; }
};

/** Strings are UTF-8, and kept only as far as people get to see them. */
using ScriptValue = std::variant<NoValue, UndefinedValue, NullValue, bool, double, std::string, ObjectValue>;

} // namespace tv

#endif
