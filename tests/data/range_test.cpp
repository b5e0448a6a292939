#include "tests/data/columns.h"
#include "velmora/data/ranges.h"

namespace {

constexpr double largest = std::numeric_limits<double>::max();
constexpr double least = INT32_MIN, most = INT32_MAX;

enum class Kind { Double, Float, Integer, Index, Date };
using enum Kind;
constexpr Kind allKinds[] = {Double, Float, Integer, Index, Date};

VELRangePtr makeDefault(Kind kind) {
  if (kind == Float) return std::make_shared<VELFloatRange>();
  if (kind == Integer) return std::make_shared<VELIntegerRange>();
  if (kind == Index) return std::make_shared<VELIndexRange>();
  if (kind == Date) return std::make_shared<VELDateRange>();
  return std::make_shared<VELDoubleRange>();
}

// Doubles stand for every class here; the classes convert as their setters do.
VELRangePtr make(Kind kind, double min, double max) {
  VELRangePtr range = makeDefault(kind);
  range->setMin(min);
  range->setMax(max);
  return range;
}

void expectBounds(const VELRange& range, double min, double max) {
  // Single precision: the expectation is rounded as the class rounds, nothing is tolerated beyond it.
  const bool single = range.min().type == VELDataType_Float;
  const auto rounded = [single](double v) { return single ? static_cast<double>(static_cast<float>(v)) : v; };
  EXPECT_TRUE(same(range.minAsDouble(), rounded(min)) && same(range.maxAsDouble(), rounded(max)))
      << range << ", expected " << min << " to " << max;
}

}  // namespace

TEST(Range, ANewRangeIsInvertedAndUndefined) {
  const struct {
    Kind kind;
    VELDataType tag;
    double min, max;
  } defaults[] = {{Double, VELDataType_Double, largest, -largest},
                  {Float, VELDataType_Float, 0x1.fffffep127, -0x1.fffffep127},
                  {Integer, VELDataType_Int32, most, least},
                  {Index, VELDataType_Int32, most, least},
                  {Date, VELDataType_DateTime, largest, -largest}};
  for (const auto& row : defaults) {
    const VELRangePtr range = makeDefault(row.kind);
    SCOPED_TRACE(range->description());
    EXPECT_TRUE(range->min().type == row.tag && range->max().type == row.tag);
    expectBounds(*range, row.min, row.max);
    EXPECT_FALSE(range->isDefined());
    EXPECT_EQ(reasonOf([&] { range->assertMinLessOrEqualToThanMax(); }),
              std::string("-[") + range->className() +
                  " assertMinLessOrEqualToThanMax] Min should not be greater than Max");
    const VELRange& same = *range;
    const VELRangePtr undefined = VELRangeFactory::getRangeWithRangeType(typeid(same), kNaN, 1);
    EXPECT_TRUE(undefined->equals(range)) << *undefined;
    EXPECT_TRUE(range->clone()->equals(range));
  }
  EXPECT_EQ(reasonOf([] { VELDoubleRange(kNaN, 1).assertMinLessOrEqualToThanMax(); }), kNothingRaised);
}

// One epsilon must not be lost on large values; a reversed date range has no extent.
TEST(Range, DefinedAndZeroMeanWhatEachClassCounts) {
  const struct {
    double min, max;
    Kind kind;
    bool defined, zero;
  } cases[] = {{1e300, 1e300, Double, true, true}, {1e9 + 1, 1e9, Double, false, false},
               {kNaN, 5, Double, false, false},    {-kInf, kInf, Double, true, false},
               {1e10, 1e10, Float, true, true},    {1, 1 + 1e-7, Float, true, true},
               {3, 3, Integer, false, true},       {3, 3, Index, false, true},
               {-1, 3, Index, false, false},       {9, 7, Date, false, true},
               {kNaN, 7, Date, false, false}};
  for (const auto& row : cases) {
    const VELRangePtr range = make(row.kind, row.min, row.max);
    EXPECT_TRUE(range->isDefined() == row.defined && range->isZero() == row.zero) << *range;
  }
}

TEST(Range, BoundsAreConvertedAndTaggedByTheClass) {
  EXPECT_EQ(VELIntegerRange(2.9, -2.9).diff().data.int32Value, -4);
  EXPECT_EQ(VELGenericInt(VELIntegerRange(INT32_MIN, INT32_MAX).diff()), -1);  // wraps
  EXPECT_TRUE(std::isnan(VELDateRange(int64_t{1}, 2).minAsDouble()));          // a counter is no date
  expectBounds(VELIndexRange(1e10, kNaN), INT32_MAX, 0);
  expectBounds(*VELDateRange(9, 3).asDoubleRange(), 3, 9);
}

TEST(Range, SettingBothBoundsOrdersThemButLimitsDoNot) {
  for (const Kind kind : allKinds) {
    const VELRangePtr range = makeDefault(kind);
    range->setMinTo(10, 2);
    expectBounds(*range, 2, 10);
    const VELRangePtr limit = make(kind, 4, 6);
    range->setMinTo(8, 9, *limit);
    expectBounds(*range, 8, 6);
    expectBounds(*VELRangeFactory::clone(*range, 9, 1, nullptr), 1, 9);
    expectBounds(*VELRangeFactory::clone(*range, 1, 9, limit.get()), 4, 6);
  }
}

// Ranges of no extent grow by their own bounds; integers truncate and are never put in order, indices round.
TEST(Range, GrowingWidensByFractionsOfTheSpan) {
  const struct {
    Kind kind;
    double min, max, a, b, newMin, newMax;
  } cases[] = {{Double, 5, 5, 0.1, 0.1, 4.5, 5.5},      {Double, 0, 0, 0.1, 0.1, -1, 1},
               {Double, -5, -5, 0.5, 0.5, -7.5, -2.5},  {Date, 9, 7, 1, 1, 0, 14.0},
               {Double, 0, 10, -0.6, -0.6, 4, 6},       {Index, 0, 5, 0.1, 0.1, -1, 6},
               {Integer, 0, 5, 0.1, 0.1, 0, 5},         {Index, 0, 10, -1, -1, 0, 10},
               {Index, 10, 10, 0.25, 0.25, 7, 13},      {Integer, 0, 10, -1, -1, 10, 0},
               {Integer, 10, 10, 0.25, 0.25, 8, 12},    {Integer, 1, 9, kNaN, 1, 1, 17},
               {Integer, 0, 2e9, 1e9, 1e9, least, most}};
  for (const auto& row : cases) {
    const VELRangePtr range = make(row.kind, row.min, row.max);
    SCOPED_TRACE(range->description());
    EXPECT_EQ(&range->growMinBy(row.a, row.b), range.get());
    expectBounds(*range, row.newMin, row.newMax);
  }
}

TEST(Range, LogarithmicGrowthMakesANewRange) {
  const struct {
    Kind kind;
    double min, max, a, b, base, newMin, newMax;
  } cases[] = {{Double, 1, 16, 0.5, 0.5, 2, 0.25, 64},    {Float, 1, 16, 0.5, 0.5, 2, 0.25, 64},
               {Date, 1, 16, 0.5, 0.5, 2, 0.25, 64},      {Integer, 2, 8, 0.5, 0.5, 2, 1, 16},
               {Double, -3, 1, 0, 1, 2, 0x1p-52, 0x1p52}, {Float, -3, 1, 0, 1, 2, 0x1p-23, 0x1p23},
               {Index, 0, 8, 0.5, 0.5, 2, 0, most}};
  for (const auto& row : cases) {
    const VELRangePtr range = make(row.kind, row.min, row.max);
    const VELRangePtr grown = range->growMinBy(row.a, row.b, true, row.base);
    expectBounds(*grown, row.newMin, row.newMax);
    expectBounds(*range, row.min, row.max);
    EXPECT_STREQ(grown->className(), range->className());
    EXPECT_EQ(range->growMinBy(0, 0, false, 2), range);
  }
}

TEST(Range, ClippingStaysInsideTheLimit) {
  const struct {
    double min, max, limitMin, limitMax, newMin, newMax;
  } cases[] = {{5, 20, 0, 10, 5, 10}, {15, 20, 0, 10, 0, 10}, {-9, -5, 0, 10, 0, 10}, {-5, 20, 0, 10, 0, 10},
               {2, 3, 0, 10, 2, 3},   {20, 5, 0, 10, 0, 10},  {10, 10, 0, 10, 10, 10}};
  for (const Kind kind : allKinds) {
    for (const auto& row : cases) {
      const VELRangePtr range = make(kind, row.min, row.max);
      SCOPED_TRACE(range->description());
      expectBounds(range->clipTo(*make(kind, row.limitMin, row.limitMax)), row.newMin, row.newMax);
    }
  }
  expectBounds(VELDoubleRange(kNaN, 5).clipTo(VELDoubleRange(0, 10)), 0, 5);
}

TEST(Range, BothEndsAreWithinAndNaNNeverIs) {
  for (const Kind kind : allKinds) {
    const VELRangePtr range = make(kind, 0, 3);
    for (const double inside : {0.0, 1.0, 3.0}) EXPECT_TRUE(range->isValueWithinTheRange(inside)) << *range;
    for (const double outside : {-0.5, 3.5, 0x1p40, 4294967296.0, kInf, kNaN}) {
      EXPECT_FALSE(range->isValueWithinTheRange(outside)) << *range << " " << outside;
    }
    EXPECT_FALSE(range->isValueWithinTheRange(int64_t{0x100000001}));
  }
  EXPECT_TRUE(VELFloatRange(0.1, 1).isValueWithinTheRange(0.1));
}

TEST(Range, EqualityNeedsTheClassAndTheBounds) {
  for (const Kind kind : allKinds) {
    for (const Kind other : allKinds) {
      EXPECT_EQ(make(kind, 1, 2)->equals(make(other, 1, 2)), kind == other);
    }
    EXPECT_FALSE(make(kind, 1, 2)->equals(make(kind, 1, 3)));
    EXPECT_FALSE(make(kind, 1, 2)->equals(nullptr));
  }
  const VELDoubleRange unknown(kNaN, 1);
  EXPECT_TRUE(unknown.equals(unknown));
  EXPECT_FALSE(unknown.equals(*unknown.clone()));
  EXPECT_FALSE(VELDoubleRange(0, 1).equals(VELDoubleRange(0, std::nextafter(1.0, 2.0))));
  EXPECT_TRUE(VELDateRange(0, 1).equals(VELDateRange(0, std::nextafter(1.0, 2.0))));
  EXPECT_TRUE(VELDateRange(-kInf, kInf).equals(VELDateRange(-kInf, kInf)));
}

TEST(Range, AUnionCoversBothAndStartsFromAnUndefinedOne) {
  for (const Kind kind : allKinds) {
    const VELRangePtr joined = makeDefault(kind)->unionWith(*make(kind, 1, 2));
    expectBounds(*joined, 1, 2);
    EXPECT_STREQ(joined->className(), makeDefault(kind)->className());
    expectBounds(*joined->unionWith(*make(kind, -4, 1)), -4, 2);
  }
  for (const Kind kind : {Double, Float, Date}) {
    expectBounds(*make(kind, kNaN, 3)->unionWith(*make(kind, 1, kNaN)), 1, 3);
  }
  expectBounds(*VELDoubleRange(kNaN, 3).unionWith(VELDoubleRange(kNaN, 4)), largest, -largest);
}

TEST(RangeFactory, DataTypesAndClassesPickTheRange) {
  for (const auto& [type, text] : {std::pair{VELDataType_Int32, "VELIntegerRange [5, 2]"},
                                   {VELDataType_DateTime, "VELDateRange [5, 2]"},
                                   {VELDataType_Float, "VELFloatRange [5, 2]"},
                                   {VELDataType_Int64, "VELDoubleRange [5, 2]"}})
    EXPECT_EQ(VELRangeFactory::getRangeOfType(type, 5, 2)->description(), text);
  EXPECT_EQ(VELRangeFactory::getRangeWithRangeType(typeid(int), 1, 2)->rangeType(), VELRangeType_Numeric);
  EXPECT_EQ(VELRangeFactory::getRangeWithRangeType(typeid(VELIndexRange), 1, 2)->rangeType(),
            VELRangeType_Index);
}
