/**
 * What the element of an A/V Control object keeps of a page's, between the object's instances and before the first.
 * The module applies it to an instance; a browser answers with it while there is none.
 */
#ifndef AVCONTROLELEMENT_H
#define AVCONTROLELEMENT_H

// The beginnings of the names under which the element keeps it.
#define AVCONTROL_ELEMENT_PROPERTY "avcontrol kept "
#define AVCONTROL_ELEMENT_LISTENER "avcontrol listener "
#define AVCONTROL_ELEMENT_ATTRIBUTE "avcontrol attribute "
#define AVCONTROL_ELEMENT_FUNCTION "avcontrol "

/** The properties that are kept, each as `name(text)`. */
#define AVCONTROL_KEPT_PROPERTIES(name)                                                                                \
    name("onPlayStateChange") name("onPlaySpeedChanged") name("onPlayPositionChanged") name("onFullScreenChange")      \
        name("onfocus") name("onblur") name("onDRMRightsError") name("onSelectedComponentChange")                      \
            name("onSelectedComponentChanged") name("onComponentChanged") name("onParentalRatingChange") name("loop")  \
                name("cache") name("persist") name("currentTrackIndex") name("fullScreen")

/** The listeners that are kept, each as `listener(type, property)`: what the event object says by that property. */
#define AVCONTROL_KEPT_LISTENERS(listener)                                                                             \
    listener("PlayStateChange", "state") listener("PlayPositionChanged", "position")                                   \
        listener("PlaySpeedChanged", "speed") listener("SelectedComponentChange", "componentType")

#endif
