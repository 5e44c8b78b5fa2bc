/**
 * Named entities in pages of televisions.
 *
 * The engine knows `&nbsp;` and its like in XHTML whose document type is one of the W3C's. Those of HbbTV and CE-HTML
 * have the same entities. It learns the document type through a function that it gives to the XML parser when it makes
 * one: the program defines the function that makes it, and translates on the way.
 */
#include <QByteArray>
#include <dlfcn.h>
#include <libxml/parser.h>

namespace {

externalSubsetSAXFunc engineExternalSubset = nullptr;

bool isTelevisionProfile(const xmlChar* publicId) {
    const QByteArray id = QByteArray(reinterpret_cast<const char*>(publicId)).toLower();
    return id.startsWith("-//hbbtv//") || id.contains("ce-html");
}

void externalSubset(void* context, const xmlChar* name, const xmlChar* publicId, const xmlChar* systemId) {
    const auto* xhtml = reinterpret_cast<const xmlChar*>("-//W3C//DTD XHTML 1.0 Strict//EN");
    engineExternalSubset(context, name, isTelevisionProfile(publicId) ? xhtml : publicId, systemId);
}

} // namespace

extern "C" __attribute__((visibility("default"))) xmlParserCtxtPtr
xmlCreatePushParserCtxt(xmlSAXHandlerPtr sax, void* userData, const char* chunk, int size, const char* filename) {
    static const auto original =
        reinterpret_cast<decltype(&xmlCreatePushParserCtxt)>(dlsym(RTLD_NEXT, "xmlCreatePushParserCtxt"));
    if (!sax || !sax->externalSubset) {
        return original(sax, userData, chunk, size, filename);
    }
    engineExternalSubset = sax->externalSubset;
    xmlSAXHandler translating = *sax; // The parser makes a copy of its own.
    translating.externalSubset = externalSubset;
    return original(&translating, userData, chunk, size, filename);
}
