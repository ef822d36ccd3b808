#pragma once

#include "store/SqlText.h"
#include <QHash>
#include <QList>
#include <QStringList>
#include <optional>
#include <vector>

namespace ledgora {

/// Ids as they stand in the brackets of an IN.
inline QString idList(const QList<int> &ids)
{
    QStringList texts;
    texts.reserve(ids.size());
    for (const int id : ids)
        texts << number(id);
    return texts.join(u',');
}

/// Documents that come from the database in any order, put into the order in which they were asked for.
template<class Stored>
class InOrderOfIds
{
public:
    explicit InOrderOfIds(const QList<int> &ids) : m_documents(size_t(ids.size()))
    {
        for (qsizetype place = 0; place < ids.size(); ++place)
            m_places.insert(ids.at(place), size_t(place));
    }

    void put(Stored document)
    {
        const auto place = m_places.constFind(document.id);
        if (place != m_places.cend())
            m_documents.at(*place) = std::move(document);
    }
    Stored *find(int id)
    {
        const auto place = m_places.constFind(id);
        if (place == m_places.cend())
            return nullptr;
        std::optional<Stored> &document = m_documents.at(*place);
        return document ? &*document : nullptr;
    }
    /// Those that came.
    std::vector<Stored> take()
    {
        std::vector<Stored> there;
        for (std::optional<Stored> &document : m_documents) {
            if (document)
                there.push_back(std::move(*document));
        }
        return there;
    }

private:
    std::vector<std::optional<Stored>> m_documents;
    QHash<int, size_t> m_places;
};

} // namespace ledgora
