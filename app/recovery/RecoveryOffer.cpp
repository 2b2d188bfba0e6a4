// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/recovery/RecoveryOffer.h"

#include "app/files/DocumentFiles.h"
#include "host/formats/FileError.h"
#include "platform/jobs/ConsoleSingleton.h"

namespace {

using Folders = std::vector<std::shared_ptr<RecoveryFolder>>;

/// Those whose list can be read, with what is shown of them. Others stay where they are, for a newer
/// program.
std::vector<KeptWork> keptWork(Folders& folders)
{
    std::vector<KeptWork> works;
    Folders readable;
    for (std::shared_ptr<RecoveryFolder> const& folder : folders) {
        try {
            works.push_back({folder->list(), folder->picture()});
            readable.push_back(folder);
        } catch (Formats::FileError const& error) {
            Base::ConsoleSingleton::Instance().Log(error.what());
        }
    }
    folders = std::move(readable);
    return works;
}

bool recover(std::shared_ptr<RecoveryFolder> const& folder, DocumentFiles& files,
             AutoSave& autoSave)
{
    RecoveryList const list = folder->list();
    return files.recover(
        list.projectFile, list.time,
        [folder](WindowJob::Progress const& progress) {
            RecoveryFolder::Contents contents = folder->read(progress);
            return DocumentFiles::Recovered{std::move(contents.objects), contents.problems};
        },
        [folder, &autoSave] { autoSave.adopt(folder); });
}

}  // namespace

bool offerRecovery(RecoveryFolder::Path const& root, DocumentFiles& files, AutoSave& autoSave,
                   AskAboutRecovery const& ask)
{
    Folders folders;
    for (std::unique_ptr<RecoveryFolder>& folder : RecoveryFolder::leftOver(root))
        folders.push_back(std::move(folder));
    std::vector<KeptWork> works = keptWork(folders);
    bool const hasOffered = !works.empty();
    while (!works.empty()) {
        RecoveryChoice const choice = ask(works);
        if (choice.kind == RecoveryChoice::Kind::Later || choice.place >= works.size())
            break;
        if (choice.kind == RecoveryChoice::Kind::Recover) {
            recover(folders[choice.place], files, autoSave);
            break;
        }
        folders[choice.place]->remove();
        auto const place = std::ptrdiff_t(choice.place);
        folders.erase(folders.begin() + place);
        works.erase(works.begin() + place);
    }
    return hasOffered;
}
