#include "nuv64/core/string_list.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "nuv64/core/named_id.h"

namespace {

// One set of calls for each width.
template <class Ch>
struct Calls;

template <>
struct Calls<char> {
    static constexpr auto add = StringsListAddItemA;
    static constexpr auto remove = StringsListDeleteItemA;
    static constexpr auto parse = StringsListParseItemA;
    static constexpr auto find = StringsListFindItemA;
    static constexpr auto append = AppendItemFromListA;
};

template <>
struct Calls<char16_t> {
    static constexpr auto add = StringsListAddItem;
    static constexpr auto remove = StringsListDeleteItem;
    static constexpr auto parse = StringsListParseItem;
    static constexpr auto find = StringsListFindItem;
    static constexpr auto append = AppendItemFromList;
};

template <class Ch>
class StringList : public testing::Test {
  protected:
    using Text = std::basic_string<Ch>;

    static Text t(const char* text) { return Text(text, text + std::strlen(text)); }
    static std::string narrow(const Ch* text) {
        if (!text) return "(null)";
        const Text wide(text);
        return std::string(wide.begin(), wide.end());
    }

    Text wanted_;
};

using Widths = testing::Types<char, char16_t>;
TYPED_TEST_SUITE(StringList, Widths);

TYPED_TEST(StringList, AddWritesTheSeparatorFirst) {
    using Call = Calls<TypeParam>;
    TypeParam* list = nullptr;
    EXPECT_EQ(Call::add(&list, this->t("a").c_str(), ','), list);
    EXPECT_EQ(this->narrow(list), ",a");
    Call::add(&list, this->t("bc").c_str(), ';');
    EXPECT_EQ(this->narrow(list), ",a;bc");
    Call::add(&list, nullptr, ',');
    EXPECT_EQ(this->narrow(list), ",a;bc,");
    Call::add(&list, list, ',');  // its own text
    EXPECT_EQ(this->narrow(list), ",a;bc,,,a;bc,");
    Call::add(&list, this->t("d").c_str(), 0);
    EXPECT_EQ(this->narrow(list), ",a;bc,,,a;bc,d");
    std::free(list);
    EXPECT_EQ(Call::add(nullptr, this->t("a").c_str(), ','), nullptr);
}

TYPED_TEST(StringList, DeleteNeedsTheSeparatorBehind) {
    using Call = Calls<TypeParam>;
    const auto remove = [&](const char* list, const char* item, bool* found) {
        auto text = this->t(list);
        *found = Call::remove(text.data(), this->t(item).c_str(), ',');
        return this->narrow(text.c_str());
    };
    bool found = false;
    EXPECT_EQ(remove("a,b", "b", &found), "a,b");
    EXPECT_FALSE(found);
    EXPECT_EQ(remove("a,b", "a", &found), "b");
    EXPECT_TRUE(found);
    EXPECT_EQ(remove("ab,b,b,", "b", &found),
              "ab,b,");  // a piece of text, not an item: "ab," loses b
    EXPECT_TRUE(found);
    EXPECT_EQ(remove("", "b", &found), "");
    EXPECT_FALSE(found);
    auto text = this->t("a,b,");
    EXPECT_TRUE(Call::remove(text.data(), nullptr, ','));
    EXPECT_EQ(this->narrow(text.c_str()), "ab,");
    EXPECT_FALSE(Call::remove(nullptr, this->t("b").c_str(), ','));
}

TYPED_TEST(StringList, ParseCutsTheListUp) {
    using Call = Calls<TypeParam>;
    auto text = this->t(" a  x ,,b");
    TypeParam* cursor = text.data();
    TypeParam* item = nullptr;
    EXPECT_EQ(this->narrow(Call::parse(&item, &cursor, ',', 0)), "a x");
    EXPECT_EQ(item, text.data());
    EXPECT_EQ(this->narrow(Call::parse(&item, &cursor, ',', 0)), "");
    EXPECT_NE(*cursor, TypeParam(0));
    EXPECT_EQ(this->narrow(Call::parse(&item, &cursor, ',', 0x100)), "B");
    EXPECT_EQ(cursor, text.data() + text.size());
    EXPECT_EQ(this->narrow(Call::parse(&item, &cursor, ',', 0)), "");
    EXPECT_EQ(cursor, text.data() + text.size());
    cursor = nullptr;
    EXPECT_EQ(Call::parse(&item, &cursor, ',', 0), nullptr);
    EXPECT_EQ(item, nullptr);
    EXPECT_EQ(Call::parse(nullptr, &cursor, ',', 0), nullptr);
    EXPECT_EQ(Call::parse(&item, nullptr, ',', 0), nullptr);
    auto raw = this->t(" x ");
    cursor = raw.data();
    EXPECT_EQ(this->narrow(Call::parse(&item, &cursor, 0, 0x8000)), " x ");
}

TYPED_TEST(StringList, FindGivesThePlaceFromOne) {
    using Call = Calls<TypeParam>;
    const auto find = [&](const char* item, const char* list, std::uint32_t ignoreCase = 0) {
        const auto text = this->t(list);
        const auto place = Call::find(this->t(item).c_str(), text.c_str(), ',', ignoreCase, 0);
        EXPECT_EQ(this->narrow(text.c_str()), list);
        return place;
    };
    EXPECT_EQ(find("a", "a,b"), 1u);
    EXPECT_EQ(find("b", "a, b "), 2u);
    EXPECT_EQ(find("c", "a,b"), 0u);
    EXPECT_EQ(find("", "a,b"), 3u);
    EXPECT_EQ(find("", "a,,b"), 2u);
    EXPECT_EQ(find("", ""), 1u);
    EXPECT_EQ(find("b", "a,,b"), 3u);
    EXPECT_EQ(find("b", ",,,"), 0u);
    EXPECT_EQ(find("B", "a,b"), 0u);
    EXPECT_EQ(find("B", "a,b", 1), 2u);
    EXPECT_EQ(find("B", "a,b", 4), 2u);  // any value but 0 ignores the case, and nothing else
    EXPECT_EQ(find(" b", "a,b", 2), 0u);
    EXPECT_EQ(Call::find(nullptr, this->t("a").c_str(), ',', 0, 0), 2u);
    EXPECT_EQ(Call::find(this->t("a").c_str(), nullptr, ',', 0, 0), 0u);
    EXPECT_EQ(Call::find(nullptr, nullptr, ',', 0, 0), 1u);
}

TYPED_TEST(StringList, AppendTakesTheItemOfAKey) {
    using Call = Calls<TypeParam>;
    const auto append = [&](const char* key, const char* list) {
        TypeParam* dest = nullptr;
        auto text = this->t(list);
        EXPECT_EQ(Call::append(&dest, this->t(key).c_str(), text.data(), '=', ';'), dest);
        EXPECT_EQ(this->narrow(text.c_str()), list);
        const std::string result = this->narrow(dest);
        std::free(dest);
        return result;
    };
    EXPECT_EQ(append("ab", "xab=1;ab=2;"), "ab=2;");
    EXPECT_EQ(append("ab", "ab=1;ab=2;"), "ab=1;");
    EXPECT_EQ(append("ab", "abc=1;ab=2"), "ab=2");
    EXPECT_EQ(append("ab", "abab=1"), "(null)");
    EXPECT_EQ(append("ab", "ab"), "(null)");
    EXPECT_EQ(append("", "a=1;=2;"), "=2;");
    EXPECT_EQ(append("ab", ""), "(null)");
    TypeParam* dest = nullptr;
    auto text = this->t("a=1;b=2");
    Call::append(&dest, this->t("b").c_str(), text.data(), '=', ';');
    EXPECT_EQ(this->narrow(Call::append(&dest, this->t("a").c_str(), text.data(), '=', ';')),
              "b=2a=1;");
    EXPECT_EQ(Call::append(&dest, nullptr, text.data(), '=', ';'), dest);
    EXPECT_EQ(Call::append(&dest, this->t("a").c_str(), nullptr, '=', ';'), dest);
    EXPECT_EQ(Call::append(nullptr, this->t("a").c_str(), text.data(), '=', ';'), nullptr);
    EXPECT_EQ(this->narrow(dest), "b=2a=1;");
    std::free(dest);
}

TEST(NamedId, FindsTheFirstRowThatTheTextBeginsWith) {
    static const NamedId table[] = {
        {1, u"Lin"}, {1, u"LIN"}, {2, u"Log"}, {3, u"Inverse"}, {0, u"X"}};
    EXPECT_EQ(NamedId_GetId(table, u"Logarithmic"), 2u);
    EXPECT_EQ(NamedId_GetId(table, u"LIN"), 1u);
    EXPECT_EQ(NamedId_GetId(table, u"log"), 0u);
    EXPECT_EQ(NamedId_GetId(table, u" Log"), 0u);
    EXPECT_EQ(NamedId_GetId(table, u"X"), 0u);
    EXPECT_EQ(NamedId_GetId(table, u""), 0u);
    EXPECT_EQ(NamedId_GetId(table, nullptr), 0u);
    EXPECT_EQ(NamedId_GetId(nullptr, u"Log"), 0u);
    EXPECT_EQ(NamedId_GetName(table, 1), table[0].name);
    EXPECT_EQ(NamedId_GetName(table, 3), table[3].name);
    EXPECT_EQ(NamedId_GetName(table, 7), nullptr);
    EXPECT_EQ(NamedId_GetName(table, 0), nullptr);
    EXPECT_EQ(NamedId_GetName(nullptr, 1), nullptr);
}

TEST(NamedId, The8BitFormMissesWithAllOnes) {
    static const NamedIdA table[] = {{1, "FIT"}, {2, "FITS"}, {3, nullptr}, {0, nullptr}};
    static const NamedIdA plain[] = {{1, "FIT"}, {0, "X"}};
    EXPECT_EQ(NamedId_GetIdA(table, "FITS"), 1u);   // the shorter name stands first
    EXPECT_EQ(NamedId_GetIdA(table, "other"), 3u);  // a null name begins every text
    EXPECT_EQ(NamedId_GetIdA(plain, "X"), 0xFFFFFFFFu);
    EXPECT_EQ(NamedId_GetIdA(plain, nullptr), 0xFFFFFFFFu);
    EXPECT_EQ(NamedId_GetIdA(nullptr, "FIT"), 0xFFFFFFFFu);
    EXPECT_STREQ(NamedId_GetNameA(table, 2), "FITS");
    EXPECT_EQ(NamedId_GetNameA(table, 3), nullptr);
    EXPECT_EQ(NamedId_GetNameA(table, 9), nullptr);
    EXPECT_EQ(NamedId_GetNameA(table, 0), nullptr);
    EXPECT_EQ(NamedId_GetNameA(nullptr, 2), nullptr);
}

}  // namespace
