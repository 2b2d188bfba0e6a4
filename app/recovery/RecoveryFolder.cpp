// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/recovery/RecoveryFolder.h"

#include "app/recovery/RecoveryPicture.h"
#include "host/formats/FileError.h"
#include "host/formats/MeshDump.h"
#include "host/formats/OutputFile.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <set>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

using Formats::FileError;

constexpr char lockName[] = "lock";
constexpr char listName[] = "list.json";
constexpr char pictureName[] = "picture.png";
constexpr char meshEnding[] = ".mesh";
/// For a name that nobody has.
constexpr int attempts = 100;

QString textOf(fs::path const& path)
{
    return QString::fromStdString(path.string());
}

/// Whether the open file still has its name: it may have been removed before it was locked.
bool isThere(int file, fs::path const& path)
{
    struct stat opened = {}, named = {};
    return ::fstat(file, &opened) == 0 && ::stat(path.c_str(), &named) == 0 &&
           opened.st_ino == named.st_ino && opened.st_dev == named.st_dev;
}

void removeFile(fs::path const& path)
{
    std::error_code ignored;
    fs::remove(path, ignored);
}

bool isMeshFile(fs::path const& path)
{
    return path.extension() == meshEnding;
}

void writeFile(fs::path const& path, QByteArray const& content)
{
    Formats::OutputFile file(path, Formats::Overwrite::Allow);
    file.write(std::string_view(content.constData(), std::size_t(content.size())));
    file.commit();
}

std::vector<fs::path> foldersBelow(fs::path const& root)
{
    std::vector<fs::path> folders;
    std::error_code error;
    for (fs::directory_iterator entry(root, error), end; !error && entry != end;
         entry.increment(error))
        if (entry->is_directory(error))
            folders.push_back(entry->path());
    // Their names begin with the time.
    std::sort(folders.rbegin(), folders.rend());
    return folders;
}

}  // namespace

std::unique_ptr<RecoveryFolder> RecoveryFolder::lock(Path const& path)
{
    int const file =
        ::open((path / lockName).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (file < 0)
        return {};
    if (::flock(file, LOCK_EX | LOCK_NB) != 0 || !isThere(file, path / lockName)) {
        ::close(file);
        return {};
    }
    return std::unique_ptr<RecoveryFolder>(new RecoveryFolder(path, file));
}

std::unique_ptr<RecoveryFolder> RecoveryFolder::make(Path const& root)
{
    QString const time = QDateTime::currentDateTimeUtc().toString("yyyyMMdd-hhmmss-zzz");
    std::error_code error;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        Path const path =
            root / QStringLiteral("%1-%2-%3").arg(time).arg(::getpid()).arg(attempt).toStdString();
        // Another program may take it for an empty one before it is locked.
        fs::create_directories(path, error);
        if (auto made = lock(path))
            return made;
        if (error)
            break;
    }
    throw FileError(root,
                    FileError::tr("no file can be made in the folder '%1': %2.")
                        .arg(textOf(root), Formats::systemReason(error ? error.value() : errno)));
}

std::vector<std::unique_ptr<RecoveryFolder>> RecoveryFolder::leftOver(Path const& root, int days)
{
    QDateTime const oldest = QDateTime::currentDateTime().addDays(-days);
    std::vector<std::unique_ptr<RecoveryFolder>> found;
    for (Path const& path : foldersBelow(root)) {
        auto folder = lock(path);
        if (!folder)
            continue;
        QFileInfo const list(textOf(folder->listPath()));
        if (list.exists() && list.lastModified() >= oldest)
            found.push_back(std::move(folder));
        else
            folder->remove();
    }
    return found;
}

RecoveryFolder::~RecoveryFolder()
{
    ::close(m_lock);
}

RecoveryFolder::Path RecoveryFolder::listPath() const
{
    return m_path / listName;
}

bool RecoveryFolder::hasState() const
{
    std::error_code ignored;
    return fs::exists(listPath(), ignored);
}

void RecoveryFolder::write(RecoveryState const& state)
{
    RecoveryList list{state.projectFile, state.time, 0, {}};
    for (RecoveryState::Object const& object : state.objects) {
        RecoveryList::Entry entry{object.look, {}, object.matrix};
        if (object.mesh) {
            entry.meshFile = fileOf(object.mesh);
            list.triangles += object.mesh->triangles.size();
        }
        list.entries.push_back(std::move(entry));
    }
    writeFile(listPath(), recoveryText(list));
    dropFilesBut(list);
    writePicture(state);
}

// The state is kept without it too.
void RecoveryFolder::writePicture(RecoveryState const& state) const
{
    removeFile(m_path / pictureName);
    QByteArray png;
    QBuffer buffer(&png);
    if (!recoveryPicture(state).save(&buffer, "PNG"))
        return;
    try {
        writeFile(m_path / pictureName, png);
    } catch (FileError const&) {
    }
}

// A folder that was left over has files of meshes that no longer live: new ones get other numbers.
std::string RecoveryFolder::fileOf(std::shared_ptr<UMesh<float> const> const& mesh)
{
    auto const known = m_written.find(mesh.get());
    if (known != m_written.end() && known->second.mesh.lock() == mesh)
        return known->second.file;
    std::string name;
    do
        name = std::to_string(++m_lastNumber) + meshEnding;
    while (fs::exists(m_path / name));
    Formats::writeMeshDump(m_path / name, mesh);
    m_written[mesh.get()] = {mesh, name};
    return name;
}

void RecoveryFolder::dropFilesBut(RecoveryList const& list)
{
    std::set<std::string> named;
    for (RecoveryList::Entry const& entry : list.entries)
        named.insert(entry.meshFile);
    std::erase_if(m_written, [&](auto const& known) {
        return !named.contains(known.second.file) || known.second.mesh.expired();
    });
    std::vector<Path> unnamed;
    std::error_code ignored;
    for (fs::directory_entry const& entry : fs::directory_iterator(m_path, ignored))
        if (isMeshFile(entry.path()) && !named.contains(entry.path().filename().string()))
            unnamed.push_back(entry.path());
    std::ranges::for_each(unnamed, removeFile);
}

void RecoveryFolder::clear()
{
    removeFile(listPath());
    dropFilesBut({});
    removeFile(m_path / pictureName);
}

void RecoveryFolder::remove()
{
    removeFile(listPath());
    std::error_code ignored;
    fs::remove_all(m_path, ignored);
}

RecoveryList RecoveryFolder::list() const
{
    QFile file(textOf(listPath()));
    if (!file.open(QIODevice::ReadOnly))
        throw FileError(listPath(), file.errorString());
    return parseRecoveryText(file.readAll(), listPath());
}

QImage RecoveryFolder::picture() const
{
    return QImage(textOf(m_path / pictureName));
}

RecoveryFolder::Contents RecoveryFolder::read(Formats::Progress const& progress) const
{
    RecoveryList const kept = list();
    Contents contents;
    // Parts that shared a mesh share it again.
    std::map<std::string, std::unique_ptr<MeshKernel>> meshes;
    int done = 0;
    for (RecoveryList::Entry const& entry : kept.entries) {
        progress(int(99.0 * done++ / double(kept.entries.size())));
        Formats::ProjectObject object = entry.look;
        if (object.kind == Formats::ProjectObject::Kind::Part) {
            try {
                auto& mesh = meshes[entry.meshFile];
                if (!mesh)
                    mesh = Formats::readMeshDump(m_path / entry.meshFile);
                object.kernel = std::make_shared<MeshKernel>(*mesh);
            } catch (FileError const& error) {
                contents.problems.push_back(QString::fromUtf8(error.what()));
                continue;
            }
            object.kernel->getMatrix() = entry.matrix;
            object.kernel->UpdateBoundingBox();
        }
        contents.objects.push_back(std::move(object));
    }
    return contents;
}
