// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/recovery/AutoSave.h"
#include "tests/app/FilesScene.h"
#include "tests/app/ObjectStates.h"

#include <QApplication>

#include <cstdlib>
#include <fcntl.h>
#include <random>
#include <string>
#include <unistd.h>

// Changes a document at random and keeps the changes, until it is killed. Before a state can be kept,
// its fingerprint stands in the log: "state FINGERPRINT"; "kept" follows when one has been kept.
//
//   recovery_victim FOLDER SEED LOG

namespace {

/// A program whose document is changed without end.
class Victim
{
public:
    Victim(char const* root, unsigned seed, char const* log)
        : m_random(seed),
          m_log(::open(log, O_WRONLY | O_CREAT | O_APPEND, 0600)),
          m_files(std::make_unique<AnsweredQuestions>(m_answers)),
          m_autoSave(m_files, RecoveryFolder::make(root), std::chrono::milliseconds(0))
    {
        QObject::connect(&m_autoSave, &AutoSave::kept, [this] { write("kept\n"); });
    }

    [[noreturn]] void live()
    {
        for (;;) {
            edit();
            write("state " + std::to_string(fingerprintOf(document())) + "\n");
            for (int i = pick(4); i > 0; --i)
                QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
        }
    }

private:
    int pick(int count) { return std::uniform_int_distribution(0, count - 1)(m_random); }
    Mesh::Document& document() const { return *m_scene.document; }

    void write(std::string const& line) const
    {
        if (::write(m_log, line.data(), line.size()) != ssize_t(line.size()))
            std::abort();
    }

    void edit()
    {
        auto const parts = document().getMeshObjects();
        int const kind = parts.size() < 2 ? 0 : parts.size() > 12 ? 1 : pick(7);
        if (kind >= 5) {
            kind == 5 ? document().undo() : document().redo();
            return;
        }
        document().openTransaction("edit");
        Mesh::DocumentObject* const part =
            parts.empty() ? nullptr : parts[std::size_t(pick(int(parts.size())))];
        switch (kind) {
            case 0:
                add("part");
                break;
            case 1:
                document().removeObject(part);
                break;
            case 2:
                part->translate({float(pick(100)), 0.1f, float(pick(7))}, 0);
                break;
            case 3:
                part->setName("part " + std::to_string(pick(1000)));
                break;
            default:
                // As a cut does: pieces for a part.
                document().removeObject(part);
                add("upper");
                add("lower");
        }
        document().commitTransaction();
        document().setModified(true);
    }

    void add(std::string const& name)
    {
        m_scene.add(
            pick(2) ? sphere(float(1 + pick(9)), 20 + pick(60), 30) : box(float(1 + pick(9)), 2, 3),
            name + " " + std::to_string(++m_made));
    }

    std::mt19937 m_random;
    int m_log;
    int m_made = 0;
    TestDocument m_scene;
    FileAnswers m_answers;
    DocumentFiles m_files;
    AutoSave m_autoSave;
};

}  // namespace

int main(int argc, char** argv)
{
    QApplication const qt(argc, argv);
    if (argc != 4)
        return 2;
    Victim(argv[1], unsigned(std::atoi(argv[2])), argv[3]).live();
}
