#pragma once

#include <QString>
#include <QStringList>
#include <optional>

namespace ledgora {

enum class TemplateKind { Intra, Inter, NoTax, Receipt };

/// What a template is for: a kind of document, and how many copies of it stand on the page.
struct TemplateUse
{
    TemplateKind kind = TemplateKind::Intra;
    int copies = 1;
};

/// What the name of a template file says: "GST_Intra_Bill_2Copy.doc" and the like, with or without folder, case not
/// counting; nothing for another name.
std::optional<TemplateUse> templateUseOf(const QString &fileName);
/// The kind of a word: "intra", "inter", "notax", "receipt".
std::optional<TemplateKind> templateKindOf(const QString &word);

/// The fields that documents of the kind fill, with their "#" signs, in the order in which they are filled.
QStringList templateFields(TemplateKind kind);

/// What is wrong with a template, one line each; nothing when it is in order. `text` is all that stands in it,
/// paragraphs and cells separated by line breaks, and behind a form feed what is seen from the second page on alone,
/// which stands for nothing that must be on the first. Looked for are fields that do not exist or are misspelt, fields
/// that documents of the kind do not fill, rows that are missing between 1 and 10, copies that lack a field, and what
/// the CGST Rules ask of the document (rule 46 a tax invoice, 49 a bill of supply), or what a receipt says.
QStringList templateFindings(const TemplateUse &use, const QString &text);

} // namespace ledgora
