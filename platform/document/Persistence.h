// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/BaseClass.h"

#include <functional>

namespace Base {

class Reader;
class Writer;
class XMLReader;

/// What can be stored in a document file. The operations of this class are those of an object that
/// has nothing to store: they write and read nothing.
class Persistence : public BaseClass
{
public:
    static Type classTypeId;
    static Type getClassTypeId() { return classTypeId; }
    static void init();

    Type getTypeId() const override;
    std::string getClassName() const override;

    /// Bytes held in memory, as far as the class keeps count; 0 otherwise.
    virtual std::size_t getMemSize() const;
    virtual void save(Writer& writer) const;
    virtual void restore(XMLReader& reader);

    // Larger contents go to files of their own. The result tells whether a file was written or
    // read.
    virtual bool SaveDocFile(std::string file) const;
    virtual bool SaveDocFile(Writer& writer, std::function<void(int)> progress) const;
    virtual bool RestoreDocFile(std::string file);
    virtual bool RestoreDocFile(Reader& reader, std::function<void(int)> progress);
};

}  // namespace Base
