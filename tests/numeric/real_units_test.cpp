#include "nuv64/numeric/real_units.h"

#include <gtest/gtest.h>

#include "nuv64/core/special_reals.h"
#include "support/accuracy.h"

using namespace nuv64_test;

namespace {

#include "numeric/real_units_reference.inc"

TEST(Units, AgreeWithTheReference) {
    holdAccuracy("rDegToRad", kUnits, 1, 0.85, [](auto& r) { return rDegToRad(r[0]); });
    holdAccuracy("rRadToDeg", kUnits, 3, 0.95, [](auto& r) { return rRadToDeg(r[0]); });
    holdAccuracy("rHzToRads", kUnits, 5, 1.1, [](auto& r) { return rHzToRads(r[0]); });
    holdAccuracy("rRadsToHz", kUnits, 7, 1.1, [](auto& r) { return rRadsToHz(r[0]); });
    for (const auto function : {rPeriodToRads, rRadsToPeriod}) {
        holdAccuracy("rPeriodToRads", kUnits, 9, 1.1, [=](auto& r) { return function(r[0]); });
    }
    for (const auto function : {rHzToPeriod, rPeriodToHz}) {
        holdAccuracy("rHzToPeriod", kUnits, 11, 0.65, [=](auto& r) { return function(r[0]); });
    }
}

TEST(Units, SpecialArguments) {
    const double most = ___MaxReal;
    const double least = 0x1p-1074;
    const SpecialAnswers table[] = {
        {"rDegToRad",
         rDegToRad,
         {kAnyNan, kInf, -kInf, 0, 0, 0, 0, most * 0.017453292519943295,
          -most * 0.017453292519943295}},
        {"rRadToDeg",
         rRadToDeg,
         {kAnyNan, kInf, -kInf, 0, 0, 57 * least, -57 * least, kInf, -kInf}},
        {"rHzToRads", rHzToRads, {kAnyNan, kInf, -kInf, 0, 0, 6 * least, -6 * least, kInf, -kInf}},
        {"rRadsToHz", rRadsToHz, {kAnyNan, kInf, -kInf, 0, 0, 0, 0, kAnyFinite, kAnyFinite}},
        {"rPeriodToRads",
         rPeriodToRads,
         {kAnyNan, 0, 0, kInf, -kInf, kInf, -kInf, kAnyFinite, kAnyFinite}},
        {"rRadsToPeriod",
         rRadsToPeriod,
         {kAnyNan, 0, 0, kInf, -kInf, kInf, -kInf, kAnyFinite, kAnyFinite}},
        {"rHzToPeriod",
         rHzToPeriod,
         {kAnyNan, 0, 0, kInf, -kInf, kInf, -kInf, 0x1p-1024, -0x1p-1024}},
        {"rPeriodToHz",
         rPeriodToHz,
         {kAnyNan, 0, 0, kInf, -kInf, kInf, -kInf, 0x1p-1024, -0x1p-1024}},
    };
    expectSpecialAnswers(table);
}

}  // namespace
