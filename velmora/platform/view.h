// platform/view.h: the tree of rectangles that a host shows.
//
// Frames are in points, relative to the superview; origin top left, y downwards. A view holds its subviews
// strongly and its superview weakly. What a view shows of itself it tells a composer.
#pragma once

#include <memory>
#include <vector>

#include "velmora/platform/export.h"
#include "velmora/platform/geometry.h"

class VELComposer;
struct VELTouch;
struct VELWheel;

/// A rectangle with subviews. Create views with `std::make_shared`.
class VELMORA_API VELView : public std::enable_shared_from_this<VELView> {
 public:
  VELView() = default;
  explicit VELView(const VELRect& frame) : _frame(frame) {}
  VELView(const VELView&) = delete;
  VELView& operator=(const VELView&) = delete;
  virtual ~VELView();

  const VELRect& frame() const { return _frame; }
  /// A change of size asks for a layout of this view.
  virtual void setFrame(const VELRect& frame);
  /// The own rectangle in own coordinates: origin 0, 0.
  VELRect bounds() const { return {0.0, 0.0, _frame.width, _frame.height}; }
  /// The own rectangle in coordinates of the topmost view.
  VELRect frameInRoot() const;

  std::shared_ptr<VELView> superview() const { return _superview.lock(); }
  const std::vector<std::shared_ptr<VELView>>& subviews() const { return _subviews; }
  /// Appends a view, taking it from its former superview. Null and the view itself are ignored.
  void addSubview(const std::shared_ptr<VELView>& view);
  /// As above, at a position; beyond the end appends.
  void insertSubview(const std::shared_ptr<VELView>& view, size_t index);
  void removeFromSuperview();

  bool isHidden() const { return _hidden; }
  void setHidden(bool hidden) { _hidden = hidden; }

  /// Places the subviews. Runs inside `layoutIfNeeded`; call it directly to lay out at once.
  virtual void layoutSubviews() {}
  void setNeedsLayout() { _needsLayout = true; }
  bool needsLayout() const { return _needsLayout; }
  /// Lays out this view and every view below it that asked for it, from the top.
  void layoutIfNeeded();

  /// Tells this view and every one below it how many pixels a point has from now on.
  void setTreeContentScale(double pixelsPerPoint);
  /// A finger on this view or on one below it that did not take it. Once a view takes the beginning of a
  /// touch it gets the rest of it, wherever the finger goes. @return true to take it
  virtual bool onTouch(const VELTouch& touch);
  /// A turn of the wheel over this view or over one below it that did not take it. @return true to take it
  virtual bool onWheel(const VELWheel& wheel);
  /// The topmost view below this one, or this one, that shows at a point of its own coordinates; null
  /// outside.
  std::shared_ptr<VELView> viewAt(VELPoint point);

  /// True while the view waits for the next beat of the display to change what it shows.
  virtual bool needsDisplay() const { return false; }
  /// True when this view or one below it waits for a layout or for the display.
  bool isTreeDirty() const;

  /// Shows this view alone, its subviews follow. @param frameInRoot the own rectangle as the composer needs
  /// it
  virtual void compose(VELComposer& composer, const VELRect& frameInRoot);

 protected:
  /// The density changed; the views below are told next.
  virtual void contentScaleChanged(double /*pixelsPerPoint*/) {}

 private:
  VELRect _frame;
  std::weak_ptr<VELView> _superview;
  std::vector<std::shared_ptr<VELView>> _subviews;
  bool _hidden = false;
  bool _needsLayout = true;
};
