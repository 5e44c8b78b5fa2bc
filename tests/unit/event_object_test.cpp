#include "av_control_test.h"

#include "HbbTVClasses/HbbTVAVControlDOMEventClass.h"

class EventObject : public AvControl {
protected:
    HbbTVAVControlDOMEventClass* owner = video()->getDOMEventClass();
    NPObject* object = owner->getAVControlDOMEventNPObject();

    bool has(const char* name) { return object->_class->hasProperty(object, identifier(name)); }

    std::string get(const char* name) {
        NPVariant result;
        return object->_class->getProperty(object, identifier(name), &result) ? text(result) : "(none)";
    }
};

TEST_F(EventObject, OffersFourReadOnlyNumbers) {
    ASSERT_TRUE(object && owner->m_ObjectAllocated);
    EXPECT_EQ(3u, object->_class->structVersion);
    EXPECT_EQ(NPOBJECT_AV_CONTROL_DOM_CLASS, reinterpret_cast<NPObjectHbbTV*>(object)->typeNPObject);
    NPVariant value = Value(3).variant();
    for (const char* name : {"position", "speed", "componentType", "state"}) {
        EXPECT_TRUE(has(name));
        EXPECT_EQ("0", get(name));
        EXPECT_TRUE(owner->setAVControlDOMEventProperty(name, -5));
        EXPECT_EQ("-5", get(name));
        EXPECT_TRUE(owner->setAVControlDOMEventPropertyDouble(name, 0.5));
        EXPECT_FALSE(object->_class->setProperty(object, identifier(name), &value));
        EXPECT_EQ("0.5", get(name));
        EXPECT_FALSE(object->_class->hasMethod(object, identifier(name)));
        EXPECT_FALSE(object->_class->invoke(object, identifier(name), nullptr, 0, &value));
    }
    EXPECT_FALSE(object->_class->invokeDefault(object, nullptr, 0, &value));
    for (const char* name : {"State", "type", ""}) {
        EXPECT_FALSE(has(name));
        EXPECT_EQ("(none)", get(name));
        EXPECT_FALSE(owner->setAVControlDOMEventProperty(name, 1));
        EXPECT_FALSE(owner->setAVControlDOMEventPropertyDouble(name, 1));
    }
    expectLogged({"Set property: state -5\n", "Set property: state 0.500000\n", "Has property: state\n",
                  "Has Method: state\n", "Get property: type\n"});
    EXPECT_EQ(4, logged(2, "Has property: found  = 1\n"));
    EXPECT_FALSE(object->_class->hasProperty(browser().bareObject(), identifier("state")));
    EXPECT_EQ(1, logged(5, "Wrong NPObjectType !\n"));
}

TEST_F(EventObject, OutlivesItsOwnerAndThenAnswersNothing) {
    listener("PlayStateChange")->call = [&](const NPVariant* args, uint32_t) {
        EXPECT_EQ("event{0,0,0,1}", text(args[0]));
        NPN_RetainObject(NPVARIANT_TO_OBJECT(args[0]));
        video().destroy();
        EXPECT_EQ("(none)", get("state"));
        return Value();
    };
    video().report(eMEDIA_CALLBACK_PLAYING);
    another();
    EXPECT_EQ("(none)", get("state"));
    NPN_ReleaseObject(object);
    EXPECT_FALSE(browser().alive(object));
}

TEST_F(EventObject, WithoutMemoryItIsMissingAndTheRestWorks) {
    for (int nth = 1; nth <= 3; ++nth) { // its values, its record, the object behind it
        fake::failAllocation(nth);
        HbbTVAVControlDOMEventClass made(video()->getNPP());
        EXPECT_EQ(nth, fake::countAllocations());
        EXPECT_FALSE(made.m_ObjectAllocated || made.getAVControlDOMEventNPObject());
        made.setAVControlDOMEventProperty("state", 1);
    }
    EXPECT_EQ(1, logged(5, "AVControlDOMEvent NPObject allocation error !\n"));
}
