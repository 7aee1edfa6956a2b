#pragma once
// The curves of a run: the gain curve Form29 (a staircase of each channel's sensitivity along the
// run), the integral curve Form8 (the integral values against the grass-wave thresholds), the speed
// curve Form9 (pages of 400 samples with the marks on them) and the replay log Form4. Each draws on
// the canvases of its window, named as the window names them ("Form29.Picture1").
#include "station/station.h"

#include <cstdint>
#include <string>
#include <vector>

namespace orvane {

class Workbook;

// The canvas NAME of an open window; null where nothing shows it.
Canvas* canvasnamed(Station& st, const std::string& name);
// The background and the line colour of the curve canvases.
std::uint32_t curveback(const Station& st);
std::uint32_t curveline(const Station& st);
// "   0012公里345米" (in English "km", "m") of a kilometre value.
std::string mileagereadout(const Station& st, double km);
// The canvas NAME in the user scale WIDTH by HEIGHT, its background the curve background, cleared;
// null where nothing shows it.
Canvas* curvecanvas(Station& st, const std::string& name, double width, double height);
// The width of a curve over the run: the run and its margin.
double curvewidth(const Station& st);
// The label Label14 of a curve over a run of END positions placed for the pointer at X, Y: right of
// the pointer, or left of it past half of the run so that it stays inside the canvas.
void placereadout(Side::Readout& r, double end, double x, double y, const std::string& text);

// The curve window FORM ("Form29", "Form8", "Form9") drawn as its opening draws it: its scale and the
// curve of its channel or page. A window whose canvases come after the opening asks for it.
void drawcurvewindow(Station& st, const std::string& form);

// Form29. Command16 and the menu entry azyqx open it: the length of the run is frozen as curveend.
void opengaincurve(Station& st);
void gainscale(Station& st);
// The staircase of CHANNEL in the curve colour, on a cleared canvas.
void gaincurve(Station& st, int channel);
// A letter button: the channel and its colour, then its curve. "全": all nine over each other.
void gainchannel(Station& st, int channel);
void gainall(Station& st);
// The pointer over the gain or the integral curve at X, Y: their Label14 with the mileage under it.
void gainreadout(Station& st, double x, double y);
void integralreadout(Station& st, double x, double y);
// Command12 and Command8 of Form29: the doors to the speed and the integral curve.
void openspeedcurve(Station& st);
void openintegralcurve(Station& st);

// The scale of 300 units of the integral and the speed curve, on the canvas NAME: ticks every 5 units
// of value from the base line at 260.
void valuescale(Station& st, const std::string& name);

// Form8.
void integralcurve(Station& st, int channel);
void integralchannel(Station& st, int channel);
void integralall(Station& st);
// The percent lines of the grass-wave thresholds of CHANNEL with their labels on Picture3.
void thresholdlines(Station& st, int channel);
// "筛选": per channel the places whose integral value lies below the number of Text1.
Workbook integralsift(const Station& st);
void pressintegralsift(Station& st);

// Form9.
inline constexpr std::int32_t pagesize = 400;
// The page of samples from the first of HScrolljd, with its marks and mileages.
void speedpage(Station& st);
void speedreadout(Station& st, double x, double y);

// Form4 from the label Lyycs: a row a replay session of the file.
std::vector<std::string> replaylogrow(const std::string& entry);
void openreplaylog(Station& st);

} // namespace orvane
