// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/files/PartExport.h"

#include "app/files/PartLoader.h"
#include "host/formats/MeshSource.h"

#include <QDir>
#include <QSet>

#include <algorithm>

namespace {

/// Characters that some file system forbids.
constexpr char forbidden[] = "/\\:*?\"<>|";
/// Names are cut there, so that number and extension find room.
constexpr int longestName = 60;

QString fileNameFrom(std::string const& partName)
{
    QString name;
    for (QChar const c : QString::fromStdString(partName).trimmed().left(longestName)) {
        bool const isBad = !c.isPrint() || QString::fromLatin1(forbidden).contains(c);
        name += isBad ? QChar('_') : c;
    }
    while (name.startsWith('.'))
        name[0] = '_';
    return name.isEmpty() ? QStringLiteral("part") : name;
}

QString uniqueIn(QSet<QString>& taken, QString const& name)
{
    // On some file systems names that differ in case are the same.
    QString candidate = name;
    for (int number = 2; taken.contains(candidate.toLower()); ++number)
        candidate = name + QStringLiteral("_%1").arg(number);
    taken.insert(candidate.toLower());
    return candidate;
}

}  // namespace

PartExport::PartExport(std::vector<Mesh::DocumentObject*> const& parts,
                       Formats::MeshFormat const& format)
    : m_format(format)
{
    for (Mesh::DocumentObject const* const part : parts) {
        MeshKernel const* const kernel = part->meshProperty->getMesh();
        if (kernel && !kernel->readMesh()->triangles.empty())
            m_parts.push_back({part->getName(), part->meshProperty->shareMesh(), part->getColor(),
                               part->getClassName() == "Support::DocumentObject"});
    }
}

Formats::NamedMesh PartExport::meshOf(Part const& part)
{
    return {part.name, part.kernel.get(), part.color, part.isSupport};
}

void PartExport::toFile(QString const& file)
{
    Target target{file, {}};
    for (Part const& part : m_parts)
        target.parts.push_back(meshOf(part));
    m_targets = {std::move(target)};
}

void PartExport::toFolder(QString const& folder)
{
    auto const extension = m_format.extensions().front();
    QString const ending = '.' + QString::fromLatin1(extension.data(), int(extension.size()));
    QSet<QString> taken;
    m_targets.clear();
    for (Part const& part : m_parts) {
        QString const name = uniqueIn(taken, fileNameFrom(part.name)) + ending;
        m_targets.push_back({QDir(folder).filePath(name), {meshOf(part)}});
    }
}

QStringList PartExport::files() const
{
    QStringList files;
    for (Target const& target : m_targets)
        files.push_back(target.file);
    return files;
}

void PartExport::run(std::function<void(int)> const& progress) const
{
    double total = 0;
    for (Target const& target : m_targets)
        total += double(Formats::totalTriangles(target.parts)) + 1;
    double done = 0;
    for (Target const& target : m_targets) {
        double const share = double(Formats::totalTriangles(target.parts)) + 1;
        auto const scaled = [&](int percent) {
            progress(int((done * 100 + share * std::clamp(percent, 0, 100)) / total));
        };
        Formats::writeParts(systemPath(target.file), target.parts, m_format, scaled,
                            Formats::Overwrite::Allow);
        done += share;
    }
}
