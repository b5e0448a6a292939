// plot/plot.h: the program.
#pragma once

/// The whole program: reads, shows or draws, and tells on standard output and standard error what a person
/// should know. @return exit code: 0, also after a window was closed and following was interrupted, or 2 with
/// one sentence on standard error
int runPlot(int argc, const char* const* argv);
