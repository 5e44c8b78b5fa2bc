#include "gst/ElementSearch.h"

#include <iterator>

namespace media {

std::vector<ElementPtr> findElements(GstElement* pipeline, const char* factory) {
    std::vector<ElementPtr> found;
    GstIterator* iterator = gst_bin_iterate_all_by_element_factory_name(GST_BIN(pipeline), factory);
    GValue item = G_VALUE_INIT;
    GstIteratorResult result = GST_ITERATOR_OK;
    while ((result = gst_iterator_next(iterator, &item)) == GST_ITERATOR_OK || result == GST_ITERATOR_RESYNC) {
        if (result == GST_ITERATOR_RESYNC) {
            gst_iterator_resync(iterator); // elements came or went meanwhile
            found.clear();
            continue;
        }
        found.push_back(shareElement(GST_ELEMENT(g_value_get_object(&item))));
        g_value_unset(&item);
    }
    gst_iterator_free(iterator);
    return found;
}

std::vector<ElementPtr> findAdaptiveDemuxers(GstElement* pipeline) {
    std::vector<ElementPtr> found = findElements(pipeline, "hlsdemux2");
    std::vector<ElementPtr> more = findElements(pipeline, "dashdemux2");
    found.insert(found.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
    return found;
}

} // namespace media
