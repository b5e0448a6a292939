#include "examples/plot/plot_window.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <memory>
#include <string>

#include "examples/plot/failure.h"
#include "examples/plot/follow_feed.h"
#include "examples/plot/plot_scene.h"
#include "velmora/platform/sdl/window_host.h"
#include "velmora/velmora.h"

namespace {

std::string windowTitle(const PlotOptions& options) {
  if (!options.title.empty()) return options.title;
  return options.file == kStandardInput ? "standard input" : options.file.filename().string();
}

std::shared_ptr<VELWindowHost> openWindow(const PlotOptions& options) {
  VELWindowOptions wanted;
  wanted.title = windowTitle(options);
  wanted.size = options.size;
  if (options.isScaleGiven) wanted.contentScale = options.scale;
  std::string failure;
  auto host = VELWindowHost::create(wanted, &failure);
  if (!host) throw PlotFailure(failure);
  host->setBackgroundColor(VELColor::fromColorCode(VELVisualStyle::standard().background));
  return host;
}

// The one view below the root view has its size.
void fillWindow(VELWindowHost& host, const std::weak_ptr<VELView>& view) {
  host.setSizeChanged([view](const VELSize& size) {
    if (const auto filled = view.lock()) filled->setFrame({0.0, 0.0, size.width, size.height});
  });
}

// What the window shows until there are rows to draw.
class WaitingView : public VELView {
 public:
  explicit WaitingView(const std::string& text) : _label(std::make_shared<VELLabelView>()) {
    const VELVisualStyle& look = VELVisualStyle::standard();
    _label->setFont({"", look.axisTitleFontSize, false});
    _label->setTextColor(VELColor::fromColorCode(look.labelColor));
    _label->setText(text);
    _label->sizeToFit();
  }
  void layoutSubviews() override {
    if (subviews().empty()) addSubview(_label);
    const VELSize text = _label->frame().size();
    _label->setFrame({std::round((bounds().width - text.width) / 2.0),
                      std::round((bounds().height - text.height) / 2.0), text.width, text.height});
  }

 private:
  std::shared_ptr<VELLabelView> _label;
};

// A window and the feed that a timer of it turns.
class FollowedWindow {
 public:
  explicit FollowedWindow(const PlotOptions& options)
      : _options(options), _feed(options), _host(openWindow(options)) {
    show(std::make_shared<WaitingView>("Waiting for rows from " + sourceName(options) + " …"));
    _timer = _host->addTimer(kBusyInterval, [this](double seconds) { onTimer(seconds); });
  }
  FollowedWindow(const FollowedWindow&) = delete;
  FollowedWindow& operator=(const FollowedWindow&) = delete;
  ~FollowedWindow() { _host->removeTimer(_timer); }

  void run() {
    _host->run();
    if (_failure) std::rethrow_exception(_failure);
    _feed.tell();
  }

 private:
  static constexpr double kBusyInterval = 1.0 / 60.0;
  // Seldom enough to cost nothing, soon enough to look immediate.
  static constexpr double kRestInterval = 0.1;
  static constexpr double kTitleInterval = 0.5;

  void show(const std::shared_ptr<VELView>& view) {
    if (_shown) _shown->removeFromSuperview();
    _shown = view;
    view->setFrame(_host->rootView()->bounds());
    _host->rootView()->addSubview(view);
    fillWindow(*_host, view);
  }

  // The loop of the host is no place for an exception to pass through.
  void onTimer(double seconds) {
    try {
      turn(seconds);
    } catch (...) {
      _failure = std::current_exception();
      _host->stop();
    }
  }

  void turn(double seconds) {
    const auto state = _feed.turn();
    if (state == FollowFeed::State::Ended) return _host->stop();
    setInterval(state == FollowFeed::State::Flowing ? kBusyInterval : kRestInterval);
    const PlotColumns* columns = _feed.follower().columns();
    if (columns && !_scene) {
      _scene = PlotScene::createFollowing(*_host, *columns, _feed.follower().data(), _options);
      show(_scene);
    }
    if (!_scene || seconds < _nextTitles) return;
    _scene->updateTitles();
    _nextTitles = seconds + kTitleInterval;
  }

  void setInterval(double seconds) {
    if (seconds == _interval) return;
    _interval = seconds;
    _host->setTimerInterval(_timer, seconds);
  }

  PlotOptions _options;
  FollowFeed _feed;
  // Views go before the host that shows them.
  std::shared_ptr<VELWindowHost> _host;
  std::shared_ptr<VELView> _shown;
  std::shared_ptr<PlotScene> _scene;
  uint64_t _timer = 0;
  double _interval = kBusyInterval;
  double _nextTitles = 0.0;
  std::exception_ptr _failure;
};

}  // namespace

bool canOpenWindow(std::string& why) { return VELWindowHost::hasDisplay(&why); }

void showPlot(const PlotColumns& columns, const PlotOptions& options) {
  const auto host = openWindow(options);
  const auto scene = PlotScene::create(*host, columns, options);
  fillWindow(*host, scene);
  host->run();
}

void followInWindow(const PlotOptions& options) { FollowedWindow(options).run(); }
