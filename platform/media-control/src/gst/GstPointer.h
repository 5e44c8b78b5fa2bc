/** Owning pointers to GStreamer's reference-counted objects. */
#ifndef MEDIA_CONTROL_GSTPOINTER_H
#define MEDIA_CONTROL_GSTPOINTER_H

#include <gst/gst.h>
#include <memory>

namespace media {

struct ObjectUnref {
    void operator()(gpointer object) const { gst_object_unref(object); }
};

struct SampleUnref {
    void operator()(GstSample* sample) const { gst_sample_unref(sample); }
};

struct CapsUnref {
    void operator()(GstCaps* caps) const { gst_caps_unref(caps); }
};

struct GlibFree {
    void operator()(gpointer memory) const { g_free(memory); }
};

struct ErrorFree {
    void operator()(GError* error) const { g_error_free(error); }
};

/** Ends a GLib source: no call of it comes after. */
struct SourceDestroy {
    void operator()(GSource* source) const {
        g_source_destroy(source);
        g_source_unref(source);
    }
};

using ElementPtr = std::unique_ptr<GstElement, ObjectUnref>;
using PadPtr = std::unique_ptr<GstPad, ObjectUnref>;
using BusPtr = std::unique_ptr<GstBus, ObjectUnref>;
using CollectionPtr = std::unique_ptr<GstStreamCollection, ObjectUnref>;
using SamplePtr = std::unique_ptr<GstSample, SampleUnref>;
using CapsPtr = std::unique_ptr<GstCaps, CapsUnref>;
using TextPtr = std::unique_ptr<char, GlibFree>;
using ErrorPtr = std::unique_ptr<GError, ErrorFree>;
using SourcePtr = std::unique_ptr<GSource, SourceDestroy>;

/** A second reference to what somebody else owns. */
inline ElementPtr shareElement(GstElement* element) {
    return ElementPtr(GST_ELEMENT(gst_object_ref(element)));
}

/** Deletes the T that was handed to GStreamer as the user data of a callback. */
template <typename T> void deleteUserData(gpointer data) {
    delete static_cast<T*>(data);
}

/** The same as the notification of a closure. */
template <typename T> void deleteClosureData(gpointer data, GClosure* /*closure*/) {
    delete static_cast<T*>(data);
}

} // namespace media

#endif
