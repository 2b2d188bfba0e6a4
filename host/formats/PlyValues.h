// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/FileError.h"
#include "host/formats/LineReader.h"
#include "host/formats/PlyHeader.h"

#include <bit>
#include <vector>

namespace Formats {

/// Where the values behind a PLY header come from: one number after the other, of the type that the
/// header says. Numbers are exact in double.
class PlyValues
{
public:
    virtual ~PlyValues() = default;
    /// Throws FileError where there is no such number.
    virtual double next(PlyType type) = 0;
    /// An error at the number that next() gave last.
    virtual FileError error(QString const& problem) const = 0;
};

class PlyTextValues : public PlyValues
{
public:
    PlyTextValues(InputFile const& input, LineReader& lines) : m_input(input), m_lines(lines) {}

    double next(PlyType type) override;
    FileError error(QString const& problem) const override;

private:
    InputFile const& m_input;
    LineReader& m_lines;
    std::string_view m_rest;
};

class PlyBinaryValues : public PlyValues
{
public:
    /// Reads from the input's position on.
    PlyBinaryValues(InputFile& input, std::endian order);

    double next(PlyType type) override;
    FileError error(QString const& problem) const override;

private:
    void refill();

    InputFile& m_input;
    bool m_isSwapped;
    std::vector<std::byte> m_buffer;
    std::size_t m_next = 0;
    std::size_t m_end = 0;
    std::size_t m_lastSize = 0;
};

}  // namespace Formats
