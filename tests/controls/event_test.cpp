#include "controls/event.h"

#include <gtest/gtest.h>

using namespace pgbp;

TEST(Event, TellsOverACopySoThatListenersMayComeAndGo)
{
    Event<int> event;
    std::string trace;
    int second = 0;
    event.Add([&](int value) {
        trace += 'a';
        if (value > 0) {
            event.Remove(second);
            event.Add([&](int) { trace += 'c'; });
            event(value - 1); // nested
        }
    });
    second = event.Add([&](int) { trace += 'b'; });
    event(1);
    EXPECT_EQ(trace, "aac") << "the removed one hears nothing more, the new one only the nested telling";
}

TEST(Property, TellsOnlyWhenItChanges)
{
    Event<> changed;
    int told = 0;
    changed.Add([&] { ++told; });
    Property<bool> visible(changed, true);
    visible = true;
    EXPECT_EQ(told, 0);
    visible = false;
    EXPECT_EQ(told, 1);
    EXPECT_FALSE(visible);
}
