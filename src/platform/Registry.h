#pragma once

#include <QHash>
#include <QString>
#include <any>
#include <functional>
#include <memory>

namespace ledgora {

/// Makes a component by its ProgID. A host fills it by an explicit call, `registerStockComponents(Registry &)` for the
/// stock ones, before it opens a working period; nothing registers itself.
class Registry
{
public:
    template<class Interface>
    using Factory = std::function<std::unique_ptr<Interface>()>;

    /// The registry of the running library.
    static Registry &instance();

    /// A later registration under the same ProgID replaces the earlier one.
    template<class Interface>
    void add(const QString &progId, Factory<Interface> factory)
    {
        m_factories.insert(progId, std::any(std::move(factory)));
    }

    void remove(const QString &progId) { m_factories.remove(progId); }

    /// A new component, or nothing when the ProgID is unknown or stands for another kind of component.
    template<class Interface>
    std::unique_ptr<Interface> create(const QString &progId) const
    {
        const auto found = m_factories.constFind(progId);
        if (found == m_factories.cend())
            return nullptr;
        const auto *factory = std::any_cast<Factory<Interface>>(&found.value());
        return factory ? (*factory)() : nullptr;
    }

private:
    QHash<QString, std::any> m_factories;
};

} // namespace ledgora
