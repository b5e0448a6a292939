// platform/frame_pacer.h: when the next beat of a display is due.
//
// Units: seconds of a clock that does not go back.
#pragma once

#include "velmora/platform/export.h"

/// Spaces the beats of a window by the period of its display.
///
/// Where the exchange of buffers waits for the display it sets the pace itself: the next beat may follow at
/// once. That it waits is measured, not believed, since some drivers promise it and return at once; then
/// beats stand on a grid of one period. A beat that comes late starts a new grid: none is made up for.
class VELMORA_API VELFramePacer {
 public:
  /// @param period of the display; not positive or not finite gives 1/60
  /// @param isSynchronised whether the driver promises that an exchange waits for the display
  void setDisplay(double period, bool isSynchronised);
  double period() const { return _period; }

  /// The earliest time of the next beat.
  double nextBeat() const { return _exchangePaces ? _exchanged : _due; }
  /// A beat takes place now.
  void beat(double now);
  /// The buffers were exchanged during the last beat; the exchange ended now.
  void exchanged(double now);

 private:
  double _period = 1.0 / 60.0;
  bool _isSynchronised = false;
  bool _exchangePaces = false;  ///< the last beat ended with an exchange that is trusted to have waited
  int _shortExchanges = 0;      ///< in a row
  double _exchanged = 0.0;      ///< end of the last exchange
  double _due = 0.0;            ///< next place on the grid
};
