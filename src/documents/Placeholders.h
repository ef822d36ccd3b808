#pragma once

#include "platform/Reporter.h"
#include <QString>
#include <utility>
#include <vector>

namespace ledgora {

struct Placeholder
{
    QString name; ///< with its "#" signs
    PlaceholderValue value;
};

/// The replacements of a document as they grow, in the order in which they are handed to the engine: a value is
/// searched by the later ones, so the order is part of the contract with customised templates.
class Placeholders
{
public:
    void add(const char *name, const PlaceholderValue &value)
    {
        m_list.push_back({'#' + QString::fromLatin1(name) + '#', value});
    }
    void add(const char *name, int row, const PlaceholderValue &value)
    {
        m_list.push_back({'#' + QString::fromLatin1(name) + '_' + QString::number(row) + '#', value});
    }
    std::vector<Placeholder> take() { return std::move(m_list); }

private:
    std::vector<Placeholder> m_list;
};

} // namespace ledgora
