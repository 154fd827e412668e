#include "forms/dialog_port.h"

#include <gtest/gtest.h>

#include "platform/fault.h"

namespace orvent::forms {
namespace {

struct First {
    int shown = 0;
};
struct Second {
    int shown = 0;
};

TEST(Dialogs, FindTheWindowByTheTypeOfTheForm) {
    Dialogs dialogs;
    dialogs.add<First>([](First& form) { ++form.shown; });
    dialogs.add<Second>([](Second& form) { form.shown += 10; });
    std::unique_ptr<First> kept;
    dialogs.addWindow<First>([&kept](std::unique_ptr<First> form) { kept = std::move(form); });

    First first;
    Second second;
    dialogs.show(first);
    dialogs.show(second);
    dialogs.open(std::make_unique<First>());
    EXPECT_EQ(first.shown, 1);
    EXPECT_EQ(second.shown, 10);
    EXPECT_TRUE(kept);
    EXPECT_THROW(dialogs.open(std::make_unique<Second>()), platform::Fault);
}

}  // namespace
}  // namespace orvent::forms
