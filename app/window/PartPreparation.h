// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <unordered_map>

class DocumentFiles;
class MeshKernel;
class PreparedPart;

namespace Base {
class Document;
}

/// Makes what the view needs of parts that are being opened, on the thread that opens them, so that
/// the first picture does not wait for it.
class PartPreparation
{
public:
    /// files  outlives this, and runs no job now
    explicit PartPreparation(DocumentFiles& files);
    /// No job of the files runs any more.
    ~PartPreparation();

private:
    void prepare(MeshKernel const& kernel, std::function<void(int)> const& progress);
    void handOver(Base::Document const* document);
    void drop();

    std::mutex m_lock;
    std::unordered_map<MeshKernel const*, std::unique_ptr<PreparedPart>> m_prepared;
};
