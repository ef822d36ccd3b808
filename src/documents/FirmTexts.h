#pragma once

#include "documents/Placeholders.h"
#include "store/Recordset.h"

namespace ledgora {

/// What a document says of the billing company: columns of `GST_FirmMas`.
struct FirmTexts
{
    QString name, designation, gstin, pan;
    QString addr1, addr2, city, pinCode, state;
    QString mobile, officePhone1, officePhone2, residencePhone1, residencePhone2, fax, email, website;
    QString bankAccountName, bankName, bankBranch, bankAccountNo, bankIfsc, paymentComments;
    QString signName, signDesignation;
};

/// The documents that the texts are read for. A receipt has no terms of payment.
enum class DocumentKind { Bill, Receipt };

/// The company row as texts of a document; an empty recordset gives empty texts. Advances to the first row. A NULL is
/// an empty text. The saves of this program leave none, so in the terms of payment and the signature, which every
/// document of an office should show, each one is also logged under the procedure at work.
FirmTexts firmTexts(Recordset &firmRow, DocumentKind kind);

/// Address, contact, and e-mail and web texts of the company; only parts that are filled, with their separators.
QString firmAddressText(const FirmTexts &firm);
QString firmContactText(const FirmTexts &firm);
QString firmWebText(const FirmTexts &firm);

/// Who a document is from and to, as every document shows them.
struct DocumentHead
{
    bool properCase = true; ///< names, signature and party address in proper case, else upper case
    FirmTexts firm;
    QString partyName, partyGstin, partyPan, partyAddress;

    QString inNameCase(const QString &name) const;
};

/// The placeholders that all documents begin with, company and party; and the three company texts that come last of
/// all.
void addHead(Placeholders &list, const DocumentHead &document);
void addSignature(Placeholders &list, const DocumentHead &document);
void addFirmTexts(Placeholders &list, const FirmTexts &firm);

/// Puts a part behind a text, its separator only where something stands already; an empty part adds nothing.
void appendPart(QString &text, const QString &separator, const QString &part);

/// File of a template in the template folder, or in the company's sub-folder when its own templates are in use; its
/// name matches without regard to case. `stem` is "GST_Receipt" and the like.
QString templatePath(const QString &templateFolder, int firmId, bool customized, const QString &stem, bool twoCopies);

} // namespace ledgora
