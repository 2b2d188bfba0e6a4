// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/batch/JobKey.h"

#include "cli/CommandReport.h"
#include "cli/Errors.h"
#include "host/formats/InputFile.h"

#include <QCryptographicHash>

#include <charconv>
#include <cstddef>
#include <vector>

namespace {

QByteArray hashOfFile(std::string const& name)
{
    Formats::InputFile file(name, {});
    QCryptographicHash hash(QCryptographicHash::Sha256);
    std::vector<std::byte> block(1 << 20);
    while (std::size_t const count = file.read(block))
        hash.addData(reinterpret_cast<char const*>(block.data()), int(count));
    return hash.result();
}

/// Names in the file need not be valid UTF-8.
std::string textOf(BatchJob const& job)
{
    return job.json().dump(-1, ' ', false, Report::error_handler_t::replace);
}

std::size_t numberIn(std::string_view text)
{
    std::size_t number = 0;
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? number : 0;
}

}  // namespace

std::string keyOf(BatchJob const& job, std::vector<std::string> const& filesRead)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    std::string const head = std::string("freecut ") + FREECUT_VERSION + ' ' +
                             std::to_string(CommandReport::schema) + '\n' + textOf(job) + '\n';
    hash.addData(head.data(), int(head.size()));
    for (std::string const& file : filesRead)
        hash.addData(hashOfFile(file));
    return hash.result().toHex().toStdString();
}

bool Shard::has(BatchJob const& job) const
{
    std::string const text = textOf(job);
    QByteArray const hash =
        QCryptographicHash::hash({text.data(), int(text.size())}, QCryptographicHash::Sha256);
    std::uint64_t value = 0;
    for (int i = 0; i < 8; ++i)
        value = value << 8 | static_cast<unsigned char>(hash[i]);
    return value % count == number - 1;
}

Shard parseShard(std::string const& text)
{
    std::size_t const slash = text.find('/');
    Shard shard{numberIn(std::string_view(text).substr(0, slash)),
                slash == text.npos ? 0 : numberIn(std::string_view(text).substr(slash + 1))};
    if (shard.number < 1 || shard.number > shard.count)
        throw UsageError("--shard takes which part of how many, such as 1/4 to 4/4, but got \"" +
                         text + "\".");
    return shard;
}
