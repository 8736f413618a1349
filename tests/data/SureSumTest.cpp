// Sums of floats in any order.
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <random>
#include <vector>

#include "session/data/SureSum.h"

namespace pstolvane1 {
namespace {

double SumOf(const std::vector<double>& values) {
  SureSum sum;
  for (const double value : values) sum.Add(value);
  return sum.Result();
}

TEST(SureSum, WithoutNumbersItIsZero) { EXPECT_EQ(SumOf({}), 0); }

TEST(SureSum, OneNumberAloneStaysWhatItIs) {
  EXPECT_EQ(SumOf({0.1234567890123456}), 0.1234567890123456);
  EXPECT_EQ(SumOf({0, 0.1234567890123456, 0}), 0.1234567890123456);
}

TEST(SureSum, WhatCameAndWentIsGone) {
  EXPECT_EQ(SumOf({0.1, 0.2, -0.3}), 0);
  EXPECT_EQ(SumOf(std::vector<double>(10, 0.1)), 1);
}

TEST(SureSum, TheOrderDoesNotCount) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> any(-1e6, 1e6);
  std::vector<double> values(1000);
  for (double& value : values) value = any(random);
  const double sum = SumOf(values);
  for (int i = 0; i < 50; ++i) {
    std::shuffle(values.begin(), values.end(), random);
    EXPECT_EQ(SumOf(values), sum);
  }
}

// The rule as the server's text reckons it.
double ByLogarithm(const SureSum& sum) {
  const double places = 13 - std::ceil(std::log10(sum.size) - 0.02);
  const double up = std::pow(10.0, std::clamp(places, 0.0, 300.0));
  const double down = std::pow(10.0, std::clamp(-places, 0.0, 22.0));
  return std::nearbyint((sum.sum + sum.lost) * up / down) * down / up + 0.0;
}

TEST(SureSum, EverySizeIsRoundedToItsThirteenthFigure) {
  std::mt19937 random(11);
  std::uniform_real_distribution<double> any(-1, 1);
  for (double size = 1e-12; size < 1e20; size *= 1.03) {
    SureSum sum;
    for (int i = 0; i < 5; ++i) sum.Add(any(random) * size);
    EXPECT_EQ(sum.Result(), ByLogarithm(sum)) << size;
  }
}

}  // namespace
}  // namespace pstolvane1
