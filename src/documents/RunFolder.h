#pragma once

#include <QString>

namespace ledgora {

/// The folder of one run below the host's temporary folder, for its user's eyes only; it goes with all its files when
/// the object goes. It is named by a letter for the kind of run and the seconds since midnight.
class RunFolder
{
public:
    explicit RunFolder(char kind);
    RunFolder(const RunFolder &) = delete;
    RunFolder &operator=(const RunFolder &) = delete;
    ~RunFolder();

    bool isThere() const { return m_isThere; }
    QString path() const { return m_path; }

private:
    QString m_path;
    bool m_isThere = false;
};

} // namespace ledgora
