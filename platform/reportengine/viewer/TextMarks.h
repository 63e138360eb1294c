#pragma once

#include "platform/reportengine/output/FontFaces.h"
#include "platform/reportengine/viewer/ReportPages.h"
#include <QImage>

namespace quorvane::report {

/// A place where a sought text stands: which text of which page, and at which character it begins.
struct TextHit {
    int page = 0;
    int text = 0; ///< position in ShownPage::texts
    int from = 0;
    bool operator==(const TextHit&) const = default;
};

/// A text as searches compare it: case and accents do not count, as in the lookup window.
QString sought(const QString& text);

/// All places on a page, in reading order. `folded` is the result of sought; an empty one is nowhere.
std::vector<TextHit> hitsOn(const ShownPage& shown, int page, const QString& folded);

/// Where letters stand within their object, so that a found word is marked and not its whole field.
class TextMarks {
public:
    /// Part of the text from a character on, in points of the page; the whole object's place where letters
    /// cannot be told apart (a text that is drawn shortened or narrower).
    QRectF rectOf(const Definition& definition, const ShownPage& shown, const TextHit& hit, int length);
    /// The whole text.
    QRectF rectOf(const Definition& definition, const ShownPage& shown, const PlacedText& text);

private:
    const FontFace& face(const Definition& definition, const ShownPage& shown, const PlacedText& text);

    QImage m_device{1, 1, QImage::Format_RGB32};
    FontFaces m_faces;
};

} // namespace quorvane::report
