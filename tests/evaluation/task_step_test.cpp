#include "nuv64/evaluation/task_step.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "core/list.h"
#include "evaluation/experiment.h"

namespace {

using nuv64::test::HostStep;

constexpr std::uint64_t kAllOnes = UINT64_MAX;

TEST(TaskStep, NewStepHasTheTableOfDefaults) {
    const nuv64::Step step;
    EXPECT_EQ(step.Procedure, kAllOnes);
    EXPECT_EQ(step.Flags, 0u);
    EXPECT_EQ(step.Mode, 0u);
    EXPECT_EQ(step.Level, 0u);
    EXPECT_EQ(step.Zone, kAllOnes);
    EXPECT_EQ(step.Block, kAllOnes);
    EXPECT_EQ(step.OnEvaluated, 0u);
    EXPECT_EQ(step.Option, nullptr);
    EXPECT_EQ(step.ParameterList, nullptr);
    EXPECT_EQ(step.ReportText, nullptr);
    EXPECT_EQ(step.Factor, 1.0);
    EXPECT_EQ(step.Coefficients, nullptr);
}

TEST(TaskStep, StringItemsEndWithTheList) {
    const HostStep step(1, 1, "3, -1,");
    char* item = NewGetEvpParameterAsString(&step, 1);
    EXPECT_STREQ(item, " -1");
    KillStringA(&item);
    item = NewGetEvpParameterAsString(&step, 2);
    ASSERT_NE(item, nullptr);
    EXPECT_STREQ(item, "");
    KillStringA(&item);
    EXPECT_EQ(NewGetEvpParameterAsString(&step, 3), nullptr);
    EXPECT_EQ(NewGetEvpParameterAsString(&step, kAllOnes), nullptr);
    EXPECT_EQ(NewGetEvpParameterAsString(nullptr, 0), nullptr);
    const HostStep none(1, 1);
    EXPECT_EQ(NewGetEvpParameterAsString(&none, 0), nullptr);
}

TEST(TaskStep, QwordItems) {
    const HostStep step(1, 1, " 12 , -1, 2.5,, ABC, 1E3, NAN");
    EXPECT_EQ(GetEvpParameterAsQword(&step, 0), 12u);
    EXPECT_EQ(GetEvpParameterAsQword(&step, 1), kAllOnes);  // negative counts as unset
    EXPECT_EQ(GetEvpParameterAsQword(&step, 2), 3u);        // rounded
    EXPECT_EQ(GetEvpParameterAsQword(&step, 3), kAllOnes);  // empty
    EXPECT_EQ(GetEvpParameterAsQword(&step, 4), 0u);        // a word without digits
    EXPECT_EQ(GetEvpParameterAsQword(&step, 5), 1000u);
    EXPECT_EQ(GetEvpParameterAsQword(&step, 7), kAllOnes);  // missing
    EXPECT_EQ(GetEvpParameterAsQword(nullptr, 0), kAllOnes);
}

TEST(TaskStep, QlongItems) {
    const HostStep step(1, 1, " 12 , -1, ,");
    EXPECT_EQ(GetEvpParameterAsQlong(&step, 0), 12);
    EXPECT_EQ(GetEvpParameterAsQlong(&step, 1), -1);
    EXPECT_EQ(GetEvpParameterAsQlong(&step, 2), INT64_MIN);
    EXPECT_EQ(GetEvpParameterAsQlong(&step, 9), INT64_MIN);
    EXPECT_EQ(GetEvpParameterAsQlong(nullptr, 0), INT64_MIN);
}

TEST(TaskStep, RealItems) {
    const HostStep step(1, 1, "1E-3, -2.5, , INF");
    EXPECT_EQ(GetEvpParameterAsReal(&step, 0), 1e-3);
    EXPECT_EQ(GetEvpParameterAsReal(&step, 1), -2.5);
    EXPECT_TRUE(std::isnan(GetEvpParameterAsReal(&step, 2)));
    EXPECT_EQ(GetEvpParameterAsReal(&step, 3), std::numeric_limits<double>::infinity());
    EXPECT_TRUE(std::isnan(GetEvpParameterAsReal(&step, 4)));
    EXPECT_TRUE(std::isnan(GetEvpParameterAsReal(nullptr, 0)));
}

TEST(TaskStep, ItemsLongerThanAnyNumberAreReadWhole) {
    const std::string list = std::string(2000, '0') + "7";
    const HostStep step(1, 1, list.c_str());
    EXPECT_EQ(GetEvpParameterAsQword(&step, 0), 7u);
}

TEST(TaskStep, PointerItemsAreHexadecimal) {
    const HostStep step(1, 1, "0X1F,ff,,XYZ");
    EXPECT_EQ(GetEvpParameterAsPointer(&step, 0), reinterpret_cast<void*>(0x1F));
    EXPECT_EQ(GetEvpParameterAsPointer(&step, 1), reinterpret_cast<void*>(0xFF));
    EXPECT_EQ(GetEvpParameterAsPointer(&step, 2), nullptr);
    EXPECT_EQ(GetEvpParameterAsPointer(&step, 3), nullptr);
    EXPECT_EQ(GetEvpParameterAsPointer(&step, 4), nullptr);
    EXPECT_EQ(GetEvpParameterAsPointer(nullptr, 0), nullptr);
}

struct WindowCase {
    const char* parameters;
    std::uint64_t points;
    std::uint64_t first;
    std::uint64_t last;
    std::uint64_t count;
};

TEST(TaskStep, PointWindows) {
    const WindowCase cases[] = {
        {"10, 3", 100, 3, 10, 8},   {"", 100, 0, 99, 100},   {nullptr, 5, 0, 4, 5},
        {"3, -1", 100, 3, 99, 97},  {"-1, 7", 100, 0, 7, 8}, {"500, 600", 100, 99, 99, 1},
        {"500, 2", 100, 2, 99, 98}, {"0, 0", 1, 0, 0, 1},    {"0, 0", 0, 0, 0, 0},
        {"4,4", 9, 4, 4, 1},        {"1E30, 0", 4, 0, 3, 4},
    };
    for (const WindowCase& c : cases) {
        const HostStep step(1, 1, c.parameters);
        std::uint64_t first = 77;
        std::uint64_t last = 77;
        EXPECT_EQ(GetEvpIpointEpoint(&step, &first, &last, c.points), c.count);
        EXPECT_EQ(first, c.first);
        EXPECT_EQ(last, c.last);
        EXPECT_EQ(GetEvpIpointEpoint(&step, nullptr, nullptr, c.points), c.count);
    }
    std::uint64_t first = 77;
    std::uint64_t last = 77;
    EXPECT_EQ(GetEvpIpointEpoint(nullptr, &first, &last, 6), 6u);
    EXPECT_EQ(first, 0u);
    EXPECT_EQ(last, 5u);
}

TEST(TaskStep, Flags) {
    HostStep step(1, 1);
    EXPECT_EQ(SetEvpFlags(&step, 0x105), 0x105u);
    EXPECT_EQ(TestEvpFlags(&step, 0x104), 0x104u);
    EXPECT_EQ(ClearEvpFlags(&step, 0x100), 0x5u);
    EXPECT_EQ(step.Flags, 0x5u);
    EXPECT_EQ(SetEvpFlags(nullptr, 1), 0u);
    EXPECT_EQ(ClearEvpFlags(nullptr, 1), 0u);
    EXPECT_EQ(TestEvpFlags(nullptr, 1), 0u);
    const cKoListItem item(0x30);
    EXPECT_EQ(TestEvpFlags(reinterpret_cast<const EvpRecord*>(&item), 0x10), 0x10u);
}

}  // namespace
