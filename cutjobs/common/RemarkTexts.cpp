// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/common/RemarkTexts.h"

#include <QCoreApplication>

namespace {

using Kind = CutRemark::Kind;

CutRemark remark(Mesh::DocumentObject* part, Kind kind, char const* text)
{
    return {part, kind, QCoreApplication::translate("CutRemarks", text).toStdString(), {}};
}

/// A remark with places, if there are any.
void tell(CutRemarks& remarks, Mesh::DocumentObject* part,
          std::vector<UPoint3<float>> const& places, Kind kind, char const* text)
{
    if (places.empty())
        return;
    remarks.push_back(remark(part, kind, text));
    remarks.back().places = places;
}

void tellCrossing(CutRemarks& remarks, Mesh::DocumentObject* part,
                  std::vector<UPoint3<float>> const& places)
{
    tell(remarks, part, places, Kind::PieceCrossesItself,
         QT_TRANSLATE_NOOP("CutRemarks",
                           "A piece crosses itself where coordinates had to be rounded."));
}

}  // namespace

CutRemark planeMisses(Mesh::DocumentObject* part, bool bounded)
{
    return remark(
        part, Kind::NothingCut,
        bounded ? QT_TRANSLATE_NOOP("CutRemarks",
                                    "Nothing was cut: no section of the part lies within "
                                    "the plane's rectangle.")
                : QT_TRANSLATE_NOOP("CutRemarks", "Nothing was cut: the plane misses the part."));
}

CutRemarks remarksOn(PlaneCutNotes const& notes, Mesh::DocumentObject* part)
{
    CutRemarks remarks;
    tell(remarks, part, notes.turned, Kind::PartPutInOrder,
         QT_TRANSLATE_NOOP("CutRemarks",
                           "Triangles at the plane faced the other way than those around them; "
                           "they were turned."));
    tell(remarks, part, notes.doubled, Kind::PartPutInOrder,
         QT_TRANSLATE_NOOP("CutRemarks",
                           "Triangles at the plane lay there more than once; what was too much "
                           "was left out."));
    tellCrossing(remarks, part, notes.crossing);
    return remarks;
}

CutRemarks remarksOn(CombiningNotes const& notes, Mesh::DocumentObject* part)
{
    CutRemarks remarks;
    tellCrossing(remarks, part, notes.crossing);
    return remarks;
}

CutRemark toolMisses(Mesh::DocumentObject* part)
{
    return remark(part, Kind::NothingCut,
                  QT_TRANSLATE_NOOP("CutRemarks", "Nothing was cut: the tool misses the part."));
}

CutRemark toolHoldsPart(Mesh::DocumentObject* part)
{
    return remark(
        part, Kind::NothingCut,
        QT_TRANSLATE_NOOP("CutRemarks", "Nothing was cut: the whole part lies within the tool."));
}

CutRemark noRoomForPins(Mesh::DocumentObject* part)
{
    return remark(part, Kind::NoRoomForConnectors,
                  QT_TRANSLATE_NOOP("CutRemarks",
                                    "The section has no room for a connector, so its halves are "
                                    "plain."));
}

CutRemark noRoomForJoint(Mesh::DocumentObject* part)
{
    return remark(part, Kind::NoRoomForConnectors,
                  QT_TRANSLATE_NOOP("CutRemarks",
                                    "The section has no room for a lap joint, so its halves are "
                                    "plain."));
}

CutRemark gapTakesPart(Mesh::DocumentObject* part)
{
    return remark(
        part, Kind::GapTakesPiece,
        QT_TRANSLATE_NOOP("CutRemarks", "The whole part lies within the gap: nothing is left."));
}

CutRemark gapTakesInside(Mesh::DocumentObject* part)
{
    return remark(
        part, Kind::GapTakesPiece,
        QT_TRANSLATE_NOOP("CutRemarks",
                          "What lies within the tool lies within the gap: that piece is missing."));
}

CutRemark gapTakesOutside(Mesh::DocumentObject* part)
{
    return remark(part, Kind::GapTakesPiece,
                  QT_TRANSLATE_NOOP("CutRemarks",
                                    "What lies outside the tool lies within the gap: that piece "
                                    "is missing."));
}

CutRemark gapTakesUpper(Mesh::DocumentObject* part)
{
    return remark(part, Kind::GapTakesPiece,
                  QT_TRANSLATE_NOOP("CutRemarks",
                                    "What lies above the plane lies within the gap between the "
                                    "faces: the upper piece is missing."));
}

CutRemark gapTakesLower(Mesh::DocumentObject* part)
{
    return remark(part, Kind::GapTakesPiece,
                  QT_TRANSLATE_NOOP("CutRemarks",
                                    "The part's lower end lies within the gap between the faces: "
                                    "it is missing."));
}
