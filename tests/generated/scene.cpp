#include "scene.h"

#include "journal.h"
#include "log_capture.h"

#include <gtest/gtest.h>

#include "HbbTVPluginTrace.h"

using fake::browser;
using fake::Element;
using fake::television;

Scene::Scene() {
    fake::log() = {};
    television() = {};
    television().components = {{AV_COMPONENT_TYPE_VIDEO, 1, 100, -1, 0, "H264", "", 1.78, 0, 0, 0},
                               {AV_COMPONENT_TYPE_AUDIO, 1, 201, 1, 1, "HEAAC", "eng", 0, 1, 6, 0},
                               {AV_COMPONENT_TYPE_AUDIO, 0, 202, 2, 0, "HEAAC", "deu", 0, 0, 2, 0},
                               {AV_COMPONENT_TYPE_SUBTITLE, 0, 301, 1, 0, "", "fra", 0, 0, 0, 1}};
    browser().reset();
    browser().leavesGarbage = false;
    fake::completePage();
    m_functions = {browser().function("f"), browser().function("g")};
    another();
}

Scene::~Scene() {
    m_elements.clear();
    browser().finish();
    hbbtvPluginTraceSetCallback(nullptr, nullptr);
    EXPECT_EQ(0u, television().players.size()) << "players left open";
    fake::happened();
}

Element& Scene::another(const Element::Attributes& attributes) {
    m_elements.emplace_back(attributes);
    return m_elements.back();
}

std::vector<Element*> Scene::elements() {
    std::vector<Element*> all;
    for (Element& element : m_elements) {
        all.push_back(&element);
    }
    return all;
}

void Scene::report(int event, int code) {
    for (const auto& [handle, player] : std::map(television().players)) {
        if (player.callback) {
            television().report(handle, event, code, ::malloc(8));
        }
    }
}

void Scene::dropFrame() {
    for (Element& element : m_elements) {
        element.object()->answers = false;
    }
    if (browser().window) {
        browser().dropWindow();
    }
}

void Scene::deliver() {
    for (int i = 0; i < 1000 && browser().deliverOne(); ++i) {}
}

std::string Scene::future() {
    std::string seen;
    for (const std::string& name : propertyNames()) {
        seen += name + "=" + element().get(name) + "\n";
    }
    for (const auto& [name, value] : element().object()->properties) {
        seen += "own " + name + "=" + fake::text(value) + "\n";
    }
    seen += element().parameters();
    for (const int event : {eMEDIA_CALLBACK_PLAYING, eMEDIA_CALLBACK_POSITION_CHANGED, eMEDIA_CALLBACK_FINISHED,
                            eMEDIA_CALLBACK_PLAYING, eMEDIA_CALLBACK_FINISHED, eMEDIA_CALLBACK_ERROR}) {
        report(event);
        deliver();
        seen += std::to_string(event) + ": " + fake::happened() + "\n";
    }
    return seen;
}
