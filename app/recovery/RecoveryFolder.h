// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/recovery/RecoveryList.h"
#include "app/recovery/RecoveryState.h"

#include <QImage>
#include <QStringList>

#include <filesystem>
#include <map>
#include <memory>
#include <vector>

/// A folder with the last state of a document that nobody has saved, for the time after the program
/// has been killed. It is locked as long as the program lives, by a lock that goes with the
/// process: a folder whose lock can be had is left over.
///
/// At any moment it holds one whole state, or none: geometry goes into files of its own, written
/// once for as long as a mesh lives and named by the list; the list comes last and takes the place
/// of the one before in one step; only then go files that it does not name.
///
/// See docs/decisions/0017-recovery.md.
///
/// thread  any, one at a time
class RecoveryFolder
{
public:
    using Path = std::filesystem::path;

    /// A new one below a folder, which is made if it is not there.
    /// throws  Formats::FileError
    static std::unique_ptr<RecoveryFolder> make(Path const& root);
    /// Those below a folder that programs have left with a state in them, the newest first, and
    /// locked from now on. What holds no state goes, and what is older than so many days.
    static std::vector<std::unique_ptr<RecoveryFolder>> leftOver(Path const& root, int days = 60);

    /// Gives the folder back; one with a state in it is left over from now on.
    ~RecoveryFolder();
    RecoveryFolder(RecoveryFolder const&) = delete;
    RecoveryFolder& operator=(RecoveryFolder const&) = delete;

    Path const& path() const { return m_path; }

    /// Keeps a state in the place of the one before.
    /// throws  Formats::FileError; the state before is kept then
    void write(RecoveryState const& state);
    /// Keeps none.
    void clear();
    /// Clears, and takes the folder away.
    void remove();

    bool hasState() const;
    /// What is known without reading geometry.
    /// throws  Formats::FileError
    RecoveryList list() const;
    /// A picture of the state; none if there is no file with it.
    QImage picture() const;

    /// What was kept; parts whose file cannot be read are left out.
    struct Contents
    {
        std::vector<Formats::ProjectObject> objects;
        /// One sentence for each part that was left out.
        QStringList problems;
    };
    /// progress  percentages; what it throws is let pass
    /// throws    Formats::FileError if there is no list that can be read
    Contents read(Formats::Progress const& progress) const;

private:
    RecoveryFolder(Path path, int lock) : m_path(std::move(path)), m_lock(lock) {}
    static std::unique_ptr<RecoveryFolder> lock(Path const& path);

    Path listPath() const;
    std::string fileOf(std::shared_ptr<UMesh<float> const> const& mesh);
    void writePicture(RecoveryState const& state) const;
    void dropFilesBut(RecoveryList const& list);

    Path m_path;
    int m_lock;
    struct Written
    {
        std::weak_ptr<UMesh<float> const> mesh;
        std::string file;
    };
    std::map<UMesh<float> const*, Written> m_written;
    unsigned m_lastNumber = 0;
};
