#pragma once
// A click on Labelaxxs: the processed and the raw values of the A-mode's channel under the view, 1200
// positions in twelve blocks, as a workbook; a service tool to compare the two.
namespace orvane {

struct Station;
class Workbook;

// The workbook, or none (an empty workbook's first sheet) when no channel is chosen.
Workbook rawsamplebook(const Station& st);
void pressrawsamples(Station& st);

} // namespace orvane
