#include "data/parameter_block.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

std::string textOf(const cKoAsciPars& pars) {
    return std::string(pars.View());
}

std::string valueOf(const cKoAsciPars& pars, const char* key) {
    char value[1024];
    if (pars.GetText(key, value, nullptr) == cKoAsciPars::kNotFound) return "(absent)";
    return value;
}

TEST(ParameterBlock, StartsEmptyAndWritesTheFirstLineBehindACr) {
    cKoAsciPars pars;
    EXPECT_EQ(pars.Length, UINT64_MAX);
    EXPECT_EQ(pars.Text, nullptr);
    EXPECT_EQ(pars.AddLine("NBLK", "1", nullptr), 0u);
    EXPECT_EQ(textOf(pars), "\rNBLK=1=\r");
    EXPECT_EQ(pars.Capacity, 10000u);
    EXPECT_EQ(pars.Length, 9u);
    EXPECT_EQ(pars.LineCount, 1u);
    EXPECT_EQ(valueOf(pars, "NBLK"), "1");
    pars.Clear();
    EXPECT_EQ(pars.Length, UINT64_MAX);
    EXPECT_EQ(pars.LineCount, 0u);
    EXPECT_EQ(pars.Text, nullptr);
}

TEST(ParameterBlock, ACommentWithoutValueIsReadAsTheValue) {
    cKoAsciPars pars;
    pars.AddLine("BS", "", "512");
    EXPECT_EQ(textOf(pars), "\rBS=512\r");
    EXPECT_EQ(valueOf(pars, "BS"), "512");
    EXPECT_EQ(pars.GetInteger("BS"), 512u);
}

TEST(ParameterBlock, AKeyMatchesAWholeLineStartOnly) {
    cKoAsciPars pars;
    pars.AddLine("DW", "0.5", nullptr);
    EXPECT_EQ(pars.FindValue("W"), cKoAsciPars::kNotFound);
    EXPECT_EQ(pars.FindValue("D"), cKoAsciPars::kNotFound);
    EXPECT_EQ(pars.FindValue("dw"), cKoAsciPars::kNotFound);
    EXPECT_EQ(pars.FindValue(""), cKoAsciPars::kNotFound);
    EXPECT_EQ(pars.FindValue(nullptr), cKoAsciPars::kNotFound);
    EXPECT_EQ(pars.FindValue("DW"), 4u);
}

TEST(ParameterBlock, EmptyKeysAndTextsAddNothing) {
    cKoAsciPars pars;
    EXPECT_EQ(pars.AddLine("", "1", "2"), 0u);
    EXPECT_EQ(pars.AddLine(nullptr, "1", "2"), 0u);
    EXPECT_EQ(pars.AddText(nullptr), 0u);
    EXPECT_EQ(pars.AddText(""), 0u);
    EXPECT_EQ(pars.Text, nullptr);
}

TEST(ParameterBlock, AddTextIsLiteralAndCountsItsLines) {
    cKoAsciPars pars;
    EXPECT_EQ(pars.AddText("A=1\rB=2=two"), 0u);
    EXPECT_EQ(textOf(pars), "\rA=1\rB=2=two\r");
    EXPECT_EQ(pars.LineCount, 2u);
    char comment[1024];
    char value[1024];
    EXPECT_EQ(pars.GetText("B", value, comment), 13u);
    EXPECT_STREQ(value, "2");
    EXPECT_STREQ(comment, "two");
}

TEST(ParameterBlock, GrowsByTheGrowthStep) {
    cKoAsciPars pars;
    pars.GrowthStep = 10;
    pars.AddLine("A", "1", nullptr);
    EXPECT_EQ(pars.Capacity, 10u);
    pars.AddText("0123456789");
    EXPECT_EQ(pars.Capacity, 27u);
    EXPECT_EQ(textOf(pars), "\rA=1=\r0123456789\r");
}

TEST(ParameterBlock, DeleteAndSetMoveTheLineToTheEnd) {
    cKoAsciPars pars;
    pars.AddText("A=1=\rB=2=\rC=3=");
    EXPECT_EQ(pars.DeleteLine("X"), 21u);
    EXPECT_EQ(pars.SetLine("A", "9", "new"), 0u);
    EXPECT_EQ(textOf(pars), "\rB=2=\rC=3=\rA=9=new\r");
    EXPECT_EQ(pars.LineCount, 3u);
    EXPECT_EQ(pars.DeleteLine("B"), 0u);
    EXPECT_EQ(pars.DeleteLine("C"), 0u);
    EXPECT_EQ(pars.DeleteLine("A"), 0u);
    EXPECT_EQ(textOf(pars), "\r");
    EXPECT_EQ(pars.LineCount, 0u);
}

TEST(ParameterBlock, TheFirstOfTwoLinesHidesTheSecond) {
    cKoAsciPars pars;
    pars.AddLine("K", "1", nullptr);
    pars.AddLine("K", "2", nullptr);
    EXPECT_EQ(valueOf(pars, "K"), "1");
    pars.DeleteLine("K");
    EXPECT_EQ(valueOf(pars, "K"), "2");
}

TEST(ParameterBlock, ReadsNumbersAndFormulas) {
    cKoAsciPars pars;
    pars.AddLine("BS", "512", nullptr);
    pars.AddLine("TWICE", "(2*BS)", nullptr);
    pars.AddLine("FOUR", " (2*TWICE) ", nullptr);
    pars.AddLine("T", "1e-3 s", nullptr);
    pars.AddLine("NEG", "-1", nullptr);
    pars.AddLine("WORD", "abc", nullptr);
    pars.AddLine("HALF", "2.5", nullptr);
    pars.AddLine("BAD", "(1+2", nullptr);
    pars.AddLine("LOST", "(1+NOWHERE)", nullptr);
    EXPECT_EQ(pars.GetReal("TWICE"), 1024.0);
    EXPECT_EQ(pars.GetReal("FOUR"), 2048.0);
    EXPECT_EQ(pars.GetReal("T"), 1e-3);
    EXPECT_TRUE(std::isnan(pars.GetReal("ABSENT")));
    EXPECT_TRUE(std::isnan(pars.GetReal("WORD")));
    EXPECT_TRUE(std::isnan(pars.GetReal("BAD")));
    EXPECT_TRUE(std::isnan(pars.GetReal("LOST")));
    EXPECT_EQ(pars.GetInteger("ABSENT"), UINT64_MAX);
    EXPECT_EQ(pars.GetInteger("NEG"), UINT64_MAX);
    EXPECT_EQ(pars.GetInteger("WORD"), UINT64_MAX);
    EXPECT_EQ(pars.GetInteger("HALF"), 3u);
}

TEST(ParameterBlock, SelfReferringFormulasEndAsNotANumber) {
    cKoAsciPars pars;
    pars.AddLine("A", "(A+1)", nullptr);
    pars.AddLine("B", "(C*2)", nullptr);
    pars.AddLine("C", "(B*2)", nullptr);
    EXPECT_TRUE(std::isnan(pars.GetReal("A")));
    EXPECT_TRUE(std::isnan(pars.GetReal("B")));
    EXPECT_EQ(pars.GetInteger("C"), UINT64_MAX);
}

TEST(ParameterBlock, FormulasThatDoubleTheirWorkEndSoon) {
    cKoAsciPars pars;
    for (int i = 0; i < 60; ++i) {
        const std::string next = "K" + std::to_string(i + 1);
        pars.AddLine(("K" + std::to_string(i)).c_str(), ("(" + next + "+" + next + ")").c_str(),
                     nullptr);
    }
    pars.AddLine("K60", "1", nullptr);
    EXPECT_TRUE(std::isnan(pars.GetReal("K0")));
    EXPECT_EQ(pars.GetReal("K55"), 32.0);
}

TEST(ParameterBlock, DeepParenthesesInChainedFormulasKeepTheStack) {
    cKoAsciPars pars;
    for (int i = 0; i < 80; ++i) {
        const std::string formula =
            std::string(450, '(') + "N" + std::to_string(i + 1) + std::string(450, ')');
        pars.AddLine(("N" + std::to_string(i)).c_str(), formula.c_str(), nullptr);
    }
    EXPECT_TRUE(std::isnan(pars.GetReal("N0")));
}

TEST(ParameterBlock, EvaluateExpressionTellsWhereItStopped) {
    cKoAsciPars pars;
    pars.AddLine("T1MX", "0.4", nullptr);
    const char text[] = "(0.1*T1MX):(4*T1MX)";
    const char* end = nullptr;
    EXPECT_NEAR(pars.EvaluateExpression(text, &end), 0.04, 1e-15);
    EXPECT_EQ(end, text + 10);
    EXPECT_TRUE(std::isnan(pars.EvaluateExpression("", nullptr)));
    EXPECT_TRUE(std::isnan(pars.EvaluateExpression(nullptr, nullptr)));
}

TEST(ParameterBlock, RealVectorsLoseSigns) {
    cKoAsciPars pars;
    pars.AddLine("V", "{9.5,-2, .25 , 1e2}", "77");
    double values[5] = {};
    EXPECT_EQ(pars.GetRealVector("V", values, 4), 0u);
    EXPECT_EQ(values[0], 9.5);
    EXPECT_EQ(values[1], 2.0);
    EXPECT_EQ(values[2], 25.0);
    EXPECT_EQ(values[3], 100.0);
    EXPECT_EQ(pars.GetRealVector("V", values, 5), 28u);
    EXPECT_EQ(pars.GetRealVector("X", values, 1), 12u);
    EXPECT_EQ(pars.GetRealVector("V", nullptr, 1), 18u);
    EXPECT_EQ(pars.GetRealVector("V", values, 0), 0u);
}

TEST(ParameterBlock, CutsLongValues) {
    cKoAsciPars pars;
    const std::string key(1500, 'k');
    const std::string value(5000, 'v');
    const std::string comment(1500, 'c');
    pars.AddLine(key.c_str(), value.c_str(), comment.c_str());
    pars.AddLine("NEXT", "1", nullptr);
    std::vector<char> k(1024), v(4096), c(1024);
    EXPECT_EQ(pars.GetText(key.c_str(), v.data(), c.data()), 1u + 1500 + 1 + 5000 + 1 + 1500 + 1);
    EXPECT_EQ(std::string(v.data()), std::string(1023, 'v'));
    EXPECT_EQ(std::string(c.data()), std::string(1023, 'c'));
    const std::uint64_t at = pars.NextLine(0, k.data(), v.data(), c.data());
    EXPECT_EQ(std::string(k.data()), std::string(1023, 'k'));
    EXPECT_EQ(std::string(v.data()), std::string(4095, 'v'));
    EXPECT_EQ(std::string(c.data()), std::string(1023, 'c'));
    EXPECT_EQ(pars.Text[at], '\r');
    EXPECT_NE(pars.NextLine(at, k.data(), v.data(), nullptr), cKoAsciPars::kNotFound);
    EXPECT_STREQ(k.data(), "NEXT");
}

TEST(ParameterBlock, WalksAllLines) {
    cKoAsciPars pars;
    char k[1024], v[4096], c[1024];
    EXPECT_EQ(pars.NextLine(0, k, v, c), cKoAsciPars::kNotFound);
    pars.AddText("A=1=one\rB=\rword\r\rC=3");
    std::vector<std::string> seen;
    for (std::uint64_t at = 0; (at = pars.NextLine(at, k, v, c)) != cKoAsciPars::kNotFound;) {
        seen.push_back(std::string(k) + "|" + v + "|" + c);
    }
    EXPECT_EQ(seen, (std::vector<std::string>{"A|1|one", "B||", "word||", "||", "C|3|"}));
    EXPECT_EQ(pars.NextLine(UINT64_MAX, k, v, c), cKoAsciPars::kNotFound);
    EXPECT_EQ(pars.NextLine(0, nullptr, nullptr, nullptr), 8u);
}

TEST(ParameterBlock, CopiesAndKeepsItself) {
    cKoAsciPars source;
    source.AddLine("A", "1", "c");
    cKoAsciPars target;
    target.AddLine("OLD", "1", nullptr);
    EXPECT_EQ(target.CopyFrom(&source), 0u);
    EXPECT_EQ(textOf(target), "\rA=1=c\r");
    EXPECT_EQ(target.Capacity, target.Length);
    EXPECT_EQ(target.LineCount, 1u);
    EXPECT_EQ(target.CopyFrom(&target), 0u);
    EXPECT_EQ(target.CopyFrom(nullptr), 22u);
    EXPECT_EQ(textOf(target), "\rA=1=c\r");
    EXPECT_EQ(target.AddLine("B", "2", nullptr), 0u);
    EXPECT_EQ(textOf(target), "\rA=1=c\rB=2=\r");
    cKoAsciPars empty;
    EXPECT_EQ(target.CopyFrom(&empty), 0u);
    EXPECT_EQ(target.Length, UINT64_MAX);
}

// Random operations against a plain list of lines.
TEST(ParameterBlock, AgreesWithAPlainModel) {
    struct ModelLine {
        std::string key, rest;
    };
    std::mt19937 random(7);
    cKoAsciPars pars;
    pars.GrowthStep = 16;
    std::vector<ModelLine> model;
    const auto find = [&](const std::string& key) {
        for (std::size_t i = 0; i < model.size(); ++i) {
            if (model[i].key == key) return i;
        }
        return model.size();
    };
    for (int step = 0; step < 20000; ++step) {
        const std::string key(1 + random() % 2, static_cast<char>('A' + random() % 4));
        const std::string value(random() % 4, static_cast<char>('0' + random() % 10));
        const std::string comment(random() % 3, '#');
        const ModelLine line{key, (value.empty() ? "" : value + "=") + comment};
        switch (random() % 3) {
            case 0:
                ASSERT_EQ(pars.AddLine(key.c_str(), value.c_str(), comment.c_str()), 0u);
                model.push_back(line);
                break;
            case 1:
                ASSERT_EQ(pars.SetLine(key.c_str(), value.c_str(), comment.c_str()), 0u);
                if (find(key) < model.size())
                    model.erase(model.begin() + static_cast<long>(find(key)));
                model.push_back(line);
                break;
            default:
                ASSERT_EQ(pars.DeleteLine(key.c_str()), find(key) < model.size() ? 0u : 21u);
                if (find(key) < model.size())
                    model.erase(model.begin() + static_cast<long>(find(key)));
        }
        std::string expected = "\r";
        for (const ModelLine& each : model) expected += each.key + "=" + each.rest + "\r";
        if (pars.Text) {
            ASSERT_EQ(textOf(pars), expected);
        }
        ASSERT_EQ(pars.LineCount, model.size());
        const std::size_t at = find(key);
        const std::string told =
            at == model.size() ? "(absent)" : model[at].rest.substr(0, model[at].rest.find('='));
        ASSERT_EQ(valueOf(pars, key.c_str()), told);
        if (model.size() > 40) {
            pars.Clear();
            model.clear();
        }
    }
}

}  // namespace
