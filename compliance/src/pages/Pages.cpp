#include "pages/Pages.h"

namespace compliance {
namespace {

Page makePage(const char* file, const char* name, const char* header, const char* promise, const char* why,
              const char* how, const char* feature = "") {
    Page page = {file, {}};
    page.check.name = name;
    page.check.header = header;
    page.check.promise = promise;
    page.check.why = why;
    page.check.how = how;
    page.check.feature = feature;
    return page;
}

} // namespace

const std::vector<Page>& allPages() {
    const char* const script = "script (npruntime.h)";
    const char* const element = "element (npapi.h)";
    static const std::vector<Page> pages = {
        makePage("typical-playback.html", "page-typical-playback", script,
                 "Properties, methods and events of the object reach script as the interface says.", "nothing works",
                 "Plays, pauses, seeks, stops, plays to the end, and compares each event."),
        makePage(
            "vocabulary.html", "page-vocabulary", script,
            "Values of every kind cross between script and plug-in, and each name goes to the plug-in or the element.",
            "pages stop with errors, or the browser crashes", "Reads, writes and calls everything with everything."),
        makePage("queue-and-loop.html", "page-queue-and-loop", script,
                 "Reports reach the plug-in thread by NPN_PluginThreadAsyncCall, in order.", "lists of media stop",
                 "Queues media, loops, and compares the states."),
        makePage(
            "removed-in-handler.html", "page-removed-in-handler", script,
            "Script that the plug-in calls may remove the element: the instance is deleted before the call returns.",
            "the browser crashes", "Removes the object inside its own handlers."),
        makePage("left-while-playing.html", "page-left-while-playing", element,
                 "A page that is left ends its instances.", "the film of a page that was left plays on",
                 "Leaves the page while media plays."),
        makePage("audio-only.html", "page-audio-only", script, "The object plays audio without picture.",
                 "radio stays silent", "Plays MP3 and AAC to a known position."),
        makePage("full-screen.html", "page-full-screen", element,
                 "In full-screen mode the object covers the screen, and focus reaches it.",
                 "full screen shows nothing, or the page's buttons stay on top",
                 "Enters and leaves full-screen mode and compares sizes, events and focus."),
        makePage("frames-end.html", "page-frames-end", element, "The end of a frame ends the instances in it.",
                 "the browser crashes when an advertisement goes", "Removes frames with objects that play."),
        makePage("object-survives.html", "page-object-survives", element,
                 "Writing type or data, moving and hiding the element ends its instance and makes another.",
                 "the object forgets its handlers", "Writes attributes, moves and hides an object that plays."),
        makePage("whatever-a-page-does.html", "page-whatever-it-does", element, "Instances begin and end in any order.",
                 "the browser crashes after an hour",
                 "Makes, moves, starts and removes objects and frames at random, always the same way."),
    };
    return pages;
}

} // namespace compliance
