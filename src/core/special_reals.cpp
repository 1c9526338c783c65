#include "nuv64/core/special_reals.h"

#include <bit>
#include <cstdint>

namespace {

constexpr double fromBits(std::uint64_t bits) noexcept {
    return std::bit_cast<double>(bits);
}

}  // namespace

constinit const double ___MaxReal = fromBits(0x7FEFFFFFFFFFFFFF);
constinit const double ___SqrtMaxReal = fromBits(0x5FF0000000000000);
constinit const double ___Root3MaxReal = fromBits(0x554428A2F98D728B);
constinit const double ___Root4MaxReal = fromBits(0x4FF0000000000000);
constinit const double ___Root5MaxReal = fromBits(0x4CBBDB8CDADBE120);
constinit const double ___LnMaxReal = fromBits(0x40862E42FEFA39EF);
constinit const double ___MinReal = fromBits(0x0004000000000000);
constinit const double ___SqrtMinReal = fromBits(0x1FF0000000000000);
constinit const double ___LnMinReal = fromBits(0xC0862E42FEFA39EF);
constinit const double ___MinRegularReal = fromBits(0x0330000000000000);
constinit const double ___EpsReal = fromBits(0x3CB0000000000000);
constinit const double ___2EpsReal = fromBits(0x3CC0000000000000);
constinit const double ___5EpsReal = fromBits(0x3CD4000000000000);
constinit const double ___SqrtEpsReal = fromBits(0x3E50000000000000);
constinit const double ___Root3EpsReal = fromBits(0x3ED965FEA53D6E3D);
constinit const double ___Root4EpsReal = fromBits(0x3F20000000000000);
constinit const double ___Root5EpsReal = fromBits(0x3F48406003B2AE5C);
constinit const double ___LnEpsReal = fromBits(0xC04205966F2B4F12);

constinit double ___PlsINF = fromBits(0x7FF0000000000000);
constinit double ___MnsINF = fromBits(0xFFF0000000000000);
constinit double ___NAN = fromBits(0xFFFF000000000000);
