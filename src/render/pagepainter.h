#pragma once
// A printed page painted on a printer, a PDF file or an image: the twips of the page scaled to fit
// the paper, the pictures drawn from their operations at the device's own resolution.
#include "station/page.h"

#include <QRectF>
#include <optional>
#include <string>

class QPainter;

namespace orvane {

// The page's extent in twips: its elements and a margin around them.
QRectF pageextent(const PrintedPage& page);
// PAGE painted into PAPER (device coordinates of PAINTER), scaled to fit and kept in proportion.
void paintpage(const PrintedPage& page, QPainter& painter, const QRectF& paper);
// PAGE as a PDF file of one A4 page in landscape at PATH, written whole and renamed into place.
// nullopt when done, else the reason, and PATH is as it was.
std::optional<std::string> writepdf(const PrintedPage& page, const std::string& path);

} // namespace orvane
