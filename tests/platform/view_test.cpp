// platform/view_test.cpp: the tree of rectangles, its layout and the order in which it shows.
#include "velmora/platform/view.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "velmora/platform/composer.h"
#include "velmora/platform/gl_layer.h"

namespace {

/// Does as told when it is laid out, and counts.
class ScriptedView : public VELView {
 public:
  using VELView::VELView;
  std::function<void(ScriptedView&)> onLayout, onCompose;
  int layouts = 0;
  std::string name;

  void layoutSubviews() override {
    ++layouts;
    if (onLayout) onLayout(*this);
  }
  void compose(VELComposer& composer, const VELRect& frameInRoot) override {
    composer.composeText({{name, {}, 0.0}}, 0, {}, {}, frameInRoot);
    if (onCompose) onCompose(*this);
  }
};

class RecordingComposer : public VELComposer {
 public:
  std::string names;
  std::vector<VELRect> frames;
  void composeLayer(const VELGLLayer&, const VELRect&) override { ADD_FAILURE() << "no view has a layer"; }
  void composeText(const VELAttributedText& text, uint32_t, const VELSize&, const VELAffineTransform&,
                   const VELRect& frame) override {
    names += text.at(0).text;
    frames.push_back(frame);
  }
};

std::shared_ptr<ScriptedView> makeView(const std::string& name, const VELRect& frame = {0, 0, 10, 10}) {
  auto view = std::make_shared<ScriptedView>(frame);
  view->name = name;
  return view;
}

std::string namesBelow(const VELView& view) {
  std::string names;
  for (const auto& subview : view.subviews()) names += static_cast<const ScriptedView&>(*subview).name;
  return names;
}

}  // namespace

TEST(View, AViewHasOnePlaceInOneTreeAndNeverBelowItself) {
  const auto first = makeView("1"), second = makeView("2"), a = makeView("a"), b = makeView("b");
  first->addSubview(a);
  first->insertSubview(b, 99);
  EXPECT_EQ(namesBelow(*first), "ab");
  first->insertSubview(b, 0);
  EXPECT_EQ(namesBelow(*first), "ba");
  second->addSubview(a);
  EXPECT_EQ(namesBelow(*first), "b");
  EXPECT_EQ(a->superview(), second);
  for (int i = 0; i < 2; ++i) a->removeFromSuperview();
  EXPECT_EQ(a->superview(), nullptr);
  EXPECT_TRUE(second->subviews().empty());
  b->addSubview(a);
  for (const auto& wrong : {first, b, a, std::shared_ptr<ScriptedView>()}) a->addSubview(wrong);
  EXPECT_TRUE(a->subviews().empty());
  EXPECT_EQ(b->superview(), first);
  EXPECT_EQ(first->superview(), nullptr);
}

TEST(View, ALayoutMayTakeItsOwnViewAwayOrAddOneAndNoneIsForgotten) {
  const auto top = makeView("t"), next = makeView("b"), added = makeView("c");
  auto leaving = makeView("a");
  leaving->onLayout = [](ScriptedView& view) {
    view.removeFromSuperview();
    view.name += " is gone but still alive";
  };
  top->onLayout = [&](ScriptedView& view) { view.addSubview(added); };
  for (const auto& view : {leaving, next}) top->addSubview(view);
  const std::weak_ptr<ScriptedView> gone = leaving;
  leaving.reset();
  top->layoutIfNeeded();
  EXPECT_TRUE(gone.expired());
  EXPECT_EQ(next->layouts, 1);
  EXPECT_EQ(added->layouts, 1);
  EXPECT_EQ(namesBelow(*top), "bc");
}

TEST(View, ATreeShowsFromTheBackToTheFrontInRootCoordinatesWithoutHiddenBranches) {
  const auto top = makeView("t", {1, 2, 100, 100}), a = makeView("a", {10, 20, 50, 50}),
             b = makeView("b", {3, 4, 5, 6}), hidden = makeView("h"), below = makeView("x");
  for (const auto& view : {a, hidden, makeView("c")}) top->addSubview(view);
  a->addSubview(b);
  hidden->addSubview(below);
  hidden->setHidden(true);
  RecordingComposer composer;
  composer.composeTree(*top);
  EXPECT_EQ(composer.names, "tabc");
  EXPECT_EQ(composer.frames.at(2), (VELRect{14, 26, 5, 6}));
  EXPECT_EQ(b->frameInRoot(), composer.frames.at(2));
  b->onCompose = [](ScriptedView& self) {
    for (int i = 0; i < 20; ++i) self.superview()->addSubview(makeView("n"));
    self.removeFromSuperview();
  };
  composer.names.clear();
  composer.composeTree(*top);
  EXPECT_EQ(composer.names, "tab" + std::string(19, 'n') + "c") << "one moved to the place that became free";
}
