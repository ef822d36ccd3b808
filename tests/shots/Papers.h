#pragma once

#include <QString>

/// Pictures of the documents that the default templates make: an ordinary bill of each kind and a receipt from the
/// office of the demonstration, and the worst that they must bear (ten long lines, long names, crores, a party written
/// in Devanagari), and what is left when next to nothing is known, in single and double copy. Answers "" or what went
/// wrong.
QString picturePapers(const QString &officeFolder, const QString &outFolder);
