/** Trace of one call of a page's function. */
#ifndef PAGECALLTRACE_H
#define PAGECALLTRACE_H

#include "npapi/npruntime.h"

#include <string>

/** Made before the call; costs nothing while nobody observes. */
class PageCallTrace {
public:
    PageCallTrace(NPP npp, const NPObject* function, const NPVariant* args, uint32_t argCount);

    /** The call has returned. @return `succeeded` */
    bool finished(bool succeeded) const;

private:
    int m_instance; ///< 0 while nobody observes
    int64_t m_start;
    std::string m_text;
};

#endif
