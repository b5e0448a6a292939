// platform/text_texture_cache_gl_test.cpp: which texts are rasterised again, and which textures are freed.
#include "velmora/platform/text_texture_cache.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace {

/// Masks of 32 rows; remembers what it was asked for.
class FakeTextEngine : public VELTextEngine {
 public:
  std::string asked;
  int32_t width = 32;

  bool hasFonts() override { return true; }
  VELSize measure(const VELAttributedText&) override { return {16.0, 16.0}; }
  double capHeight(const VELFont&) override { return 8.0; }
  VELTextMask rasterise(const VELAttributedText& text, double) override {
    asked += text.at(0).text;
    return {width, 32, std::vector<uint8_t>(static_cast<size_t>(width) * 32, 255)};
  }
};

class TextTextureCache : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(context && context->makeCurrent()) << VELGLContext::lastFailure(); }
  void TearDown() override { EXPECT_EQ(context->gl().getError(), VELGL_NO_ERROR); }
  VELTextTexture get(const std::string& text, double scale = 2.0) {
    return cache->textureFor({{text, {}, 0.0}}, scale);
  }

  std::shared_ptr<VELGLContext> context = VELGLContext::create();
  FakeTextEngine engine;
  std::unique_ptr<VELTextTextureCache> cache = std::make_unique<VELTextTextureCache>(context, engine);
};

}  // namespace

TEST_F(TextTextureCache, AnEqualTextIsRasterisedOnceAndAnythingElseIsAnotherText) {
  const VELTextTexture first = get("a");
  EXPECT_EQ(first.width, 32);
  for (int frame = 0; frame < 3; ++frame) {
    EXPECT_EQ(get("a").texture, first.texture);
    cache->trim();
  }
  EXPECT_EQ(engine.asked, "a");
  get("a", 1.0);
  const VELAttributedText others[] = {{{"a", {"", 13.0, false}, 0.0}},
                                      {{"a", {"", 12.0, true}, 0.0}},
                                      {{"a", {"Serif", 12.0, false}, 0.0}},
                                      {{"a", {}, 1.0}},
                                      {{"a", {}, 0.0}, {"b", {}, 0.0}}};
  for (const VELAttributedText& other : others) cache->textureFor(other, 2.0);
  EXPECT_EQ(engine.asked, "aaaaaaa");
  EXPECT_EQ(cache->rasterised(), 7u);
  EXPECT_EQ(cache->count(), 7u);
}

TEST_F(TextTextureCache, TheTextUsedLongestAgoGoesFirstAndNoneBeforeTheTrim) {
  const VELTextTexture b = (get("a"), get("b"));
  get("c");
  get("a");
  cache->setByteLimit(cache->bytes() - 1);
  EXPECT_EQ(cache->count(), 3u);
  cache->trim();
  EXPECT_LE(cache->bytes(), cache->byteLimit());
  EXPECT_FALSE(context->gl().isTexture(b.texture));
  for (const char* const text : {"a", "c", "b"}) get(text);
  EXPECT_EQ(engine.asked, "abcb");
  cache->setByteLimit(0);
  cache->trim();
  EXPECT_EQ(cache->bytes() + cache->count(), 0u);
}

TEST_F(TextTextureCache, ATextWithNaNIsFoundAgainAndFreedAndWhatCannotBeATextureIsNothing) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const VELAttributedText odd = {{"n", {"", nan, false}, nan}};
  EXPECT_EQ(cache->textureFor(odd, 2.0).texture, cache->textureFor(odd, 2.0).texture);
  EXPECT_EQ(engine.asked, "n");
  EXPECT_EQ(get("x", nan).texture + get("x", 0.0).texture + get("x", -1.0).texture, 0u);
  EXPECT_EQ(cache->textureFor({}, 2.0).texture, 0u);
  engine.width = context->gl().getInteger(VELGL_MAX_TEXTURE_SIZE) + 1;
  EXPECT_EQ(get("huge").texture, 0u);
  cache->setByteLimit(0);
  cache->trim();
  EXPECT_EQ(cache->count(), 0u);
}

TEST_F(TextTextureCache, TexturesGoWithTheCacheInTheirContext) {
  const uint32_t texture = get("a").texture;
  const auto other = VELGLContext::create();
  ASSERT_TRUE(other->makeCurrent());
  cache.reset();
  EXPECT_EQ(VELGLContext::current(), other.get());
  ASSERT_TRUE(context->makeCurrent());
  EXPECT_FALSE(context->gl().isTexture(texture));
}
