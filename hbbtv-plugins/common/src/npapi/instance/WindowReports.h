/** How an instance's plug-in learns of its element's rectangle. */
#ifndef WINDOWREPORTS_H
#define WINDOWREPORTS_H

#include "npapi/npapi.h"

class InstanceRef;

/** What an instance knows of its window. */
struct WindowReports {
    NPWindow given;    /**< by the engine last: engines leave the position at 0, 0 */
    NPWindow reported; /**< to the plug-in last */
    bool isGiven;
    bool isDue; /**< the rectangle is to be looked for */
};

/** The engine has laid the element out. @param window as of NPP_SetWindow */
void elementLaidOut(const InstanceRef& instance, const NPWindow& window);

/** The element may have moved: looks for its rectangle when the present call of the engine has returned. */
void elementMayHaveMoved(const InstanceRef& instance);

/** Looks for the element's rectangle now if that is due. Script may run, and the instance may be gone afterwards. */
void settleWindow(const InstanceRef& instance);

#endif
