// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/repair/RepairNotes.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

using Items = std::vector<Repair::Report::Item>;

/// The item of a flaw, in the order of the enumerators.
Repair::Report::Item& itemOf(Items& items, Repair::Flaw flaw)
{
    auto const place = std::lower_bound(
        items.begin(), items.end(), flaw,
        [](Repair::Report::Item const& item, Repair::Flaw f) { return item.flaw < f; });
    if (place != items.end() && place->flaw == flaw)
        return *place;
    return *items.insert(place, {flaw, 0, {}, {}});
}

void add(Repair::Report::Item& item, std::size_t count, MeshArrays::Point const& place)
{
    item.count += count;
    if (item.places.size() < Repair::Report::mostPlaces)
        item.places.push_back(place);
}

std::string sentence(char const* text)
{
    return QCoreApplication::translate("Services", text).toStdString();
}

}  // namespace

void noteMended(Repair::Report& report, Repair::Flaw flaw, std::size_t count,
                MeshArrays::Point const& place)
{
    add(itemOf(report.mended, flaw), count, place);
}

void noteLeft(Repair::Report& report, Repair::Flaw flaw, std::size_t count,
              MeshArrays::Point const& place, std::string const& reason)
{
    Repair::Report::Item& item = itemOf(report.left, flaw);
    add(item, count, place);
    if (item.reason.empty())
        item.reason = reason;
}

namespace reasons {

std::string shapeWouldChange()
{
    return sentence(
        QT_TRANSLATE_NOOP("Services", "Mending them would change the shape of the part."));
}

std::string open()
{
    return sentence(QT_TRANSLATE_NOOP(
        "Services", "The surface is open there, so that inside and outside cannot be told apart."));
}

std::string insideOut()
{
    return sentence(QT_TRANSLATE_NOOP("Services", "One of the shells there is inside out."));
}

std::string gaps()
{
    return sentence(
        QT_TRANSLATE_NOOP("Services", "What is there cannot be put together again without gaps."));
}

std::string moreFlaws()
{
    return sentence(QT_TRANSLATE_NOOP(
        "Services", "Mending them would leave the part with more flaws than before."));
}

std::string branching()
{
    return sentence(QT_TRANSLATE_NOOP(
        "Services", "Which surfaces go on in each other there cannot be told from the part."));
}

std::string oneSided()
{
    return sentence(QT_TRANSLATE_NOOP(
        "Services", "The surface has one side only there, so it bounds no solid."));
}

}  // namespace reasons
