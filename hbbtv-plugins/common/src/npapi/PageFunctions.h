/** The page's functions that a plug-in instance holds, by the names under which the page registered them. */
#ifndef PAGEFUNCTIONS_H
#define PAGEFUNCTIONS_H

#include "npapi/npruntime.h"

#include <map>
#include <string>

/** Holds no references: entries serve to name a function, never to call it. Plug-in thread only. */
class PageFunctions {
public:
    /** The page has stored `function` as handler or listener `name`; null forgets the name. */
    void remember(const std::string& name, const NPObject* function);

    /** @return the name of a function, "function" when it is not known */
    const char* nameOf(const NPObject* function) const;

private:
    std::map<std::string, const NPObject*> m_functions;
};

#endif
