// Rational approximations P(u)/Q(u) of the sine and cosine integrals, the coefficients from the low
// term up. Near-minimax in the relative error, by weighted least squares in 80 digits; made by
// tests/reference/sine_cosine_coefficients.py. The errors are those of the approximations before
// their coefficients are rounded to doubles.
// clang-format off
#pragma once

namespace nuv64 {

// Si(x)/x, u = x^2 in [0, 16]; largest relative error 2.2e-27.
inline constexpr double kSineNearP[] = {
    1.0,
    -0.04479130550516314,
    0.001126414437102117,
    -1.3410604613270246e-05,
    8.660426473879872e-08,
    -3.0838640843255854e-10,
    5.781091819247807e-13,
    -4.515871726282056e-16,
};
inline constexpr double kSineNearQ[] = {
    1.0,
    0.010764250050392422,
    5.776166212391814e-05,
    2.0263106699634006e-07,
    5.088019558166599e-10,
    9.296988184991388e-13,
    1.168427533451035e-15,
    8.003769626976572e-19,
};

// (Ci(x) - gamma - ln x)/x^2, u = x^2 in [0, 16]; largest relative error 1.6e-28.
inline constexpr double kCosineNearP[] = {
    -0.25,
    0.007933592159654364,
    -0.0001402439810956898,
    1.2713055439297975e-06,
    -6.544067695047363e-09,
    1.9218464664808876e-11,
    -3.046742301400438e-14,
    2.0530584649500805e-17,
};
inline constexpr double kCosineNearQ[] = {
    1.0,
    0.009932298028049211,
    4.889574962555033e-05,
    1.5632212794534335e-07,
    3.549519601115494e-10,
    5.810668409624718e-13,
    6.467723207833632e-16,
    3.8656798847176165e-19,
};

// x f(x), u = 1/x^2 in [0, 1/16]; largest relative error 2.4e-16.
inline constexpr double kAuxiliaryFP[] = {
    1.0,
    750.8727558313383,
    197901.02523896535,
    23603663.97360695,
    1371890377.7115138,
    39027576251.42133,
    517887208532.8082,
    2849922598950.335,
    4997031021738.151,
    1230364981705.8032,
};
inline constexpr double kAuxiliaryFQ[] = {
    1.0,
    752.8727558313309,
    199382.77075071257,
    23985080.568630807,
    1415577101.4398735,
    41399916143.94967,
    578197282093.7777,
    3514188620353.698,
    7649348823079.756,
    3685285480354.1133,
};

// x^2 g(x), u = 1/x^2 in [0, 1/16]; the relative error counts as it enters beside f,
// by 4/x, and is then at most 4.6e-16.
inline constexpr double kAuxiliaryGP[] = {
    1.0,
    798.0855335133036,
    224389.45502696777,
    28632244.437659945,
    1782657619.0818183,
    54233296270.240456,
    764261388789.6221,
    4386622981984.4077,
    7615356367365.381,
    1273553933018.0334,
};
inline constexpr double kAuxiliaryGQ[] = {
    1.0,
    804.0855335130174,
    229093.968230577,
    29915357.974524397,
    1938348217.6477501,
    63176286723.28903,
    1004245368770.2036,
    7174856847457.596,
    19424401656651.176,
    13202213666222.52,
};

}  // namespace nuv64
// clang-format on
