// velmora-plot: draws the columns of a CSV file as a line chart.
#include "examples/plot/plot.h"

int main(int argc, char** argv) { return runPlot(argc, argv); }
