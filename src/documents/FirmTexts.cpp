#include "documents/FirmTexts.h"

#include "store/ErrorLog.h"
#include "store/Settings.h"
#include "store/Words.h"

namespace ledgora {

namespace {

constexpr auto newLine = "\r\n";
constexpr qint64 invalidUseOfNull = 94;

enum class Null { IsEmpty, IsNoted, IsNotedOnBills };

struct FirmColumn
{
    QString FirmTexts::*text;
    const char *name;
    Null null = Null::IsEmpty;
};
constexpr FirmColumn firmColumns[] = {{&FirmTexts::name, "Nm"},
                                      {&FirmTexts::designation, "Desig"},
                                      {&FirmTexts::gstin, "GSTIN"},
                                      {&FirmTexts::pan, "PAN"},
                                      {&FirmTexts::addr1, "Addr1"},
                                      {&FirmTexts::addr2, "Addr2"},
                                      {&FirmTexts::city, "City"},
                                      {&FirmTexts::pinCode, "PinCode"},
                                      {&FirmTexts::state, "StateNm"},
                                      {&FirmTexts::mobile, "MobNo"},
                                      {&FirmTexts::officePhone1, "PhNoO1"},
                                      {&FirmTexts::officePhone2, "PhNoO2"},
                                      {&FirmTexts::residencePhone1, "PhNoR1"},
                                      {&FirmTexts::residencePhone2, "PhNoR2"},
                                      {&FirmTexts::fax, "FaxNo"},
                                      {&FirmTexts::email, "Email"},
                                      {&FirmTexts::website, "WebURL"},
                                      {&FirmTexts::bankAccountName, "BankAcName", Null::IsNotedOnBills},
                                      {&FirmTexts::bankName, "BankName", Null::IsNotedOnBills},
                                      {&FirmTexts::bankBranch, "BankBrAdd", Null::IsNotedOnBills},
                                      {&FirmTexts::bankAccountNo, "BankAcNo", Null::IsNotedOnBills},
                                      {&FirmTexts::bankIfsc, "BankIFSC", Null::IsNotedOnBills},
                                      {&FirmTexts::paymentComments, "PayComments", Null::IsNotedOnBills},
                                      {&FirmTexts::signName, "SignName", Null::IsNoted},
                                      {&FirmTexts::signDesignation, "SignDesig", Null::IsNoted}};

/// A part with its label, nothing when the part is empty.
QString labelled(const char *label, const QString &part)
{
    return part.isEmpty() ? QString() : QString(label + part);
}

QString pairOf(const QString &first, const QString &second)
{
    QString pair = first;
    appendPart(pair, ", ", second);
    return pair;
}

} // namespace

void appendPart(QString &text, const QString &separator, const QString &part)
{
    if (part.isEmpty())
        return;
    if (!text.isEmpty())
        text += separator;
    text += part;
}

FirmTexts firmTexts(Recordset &firmRow, DocumentKind kind)
{
    FirmTexts firm;
    if (!firmRow.next())
        return firm;
    for (const FirmColumn &column : firmColumns) {
        const QString name = QString::fromLatin1(column.name);
        firm.*column.text = firmRow.text(name);
        const bool noted =
            column.null == Null::IsNoted || (column.null == Null::IsNotedOnBills && kind == DocumentKind::Bill);
        if (noted && firmRow.isNull(name))
            WriteErrLog(invalidUseOfNull, "Invalid use of Null: the company's " + name, "GST_FirmMas");
    }
    return firm;
}

QString firmAddressText(const FirmTexts &firm)
{
    QString text = firm.addr1;
    appendPart(text, newLine, firm.addr2);
    appendPart(text, ", ", firm.city);
    appendPart(text, "-", firm.pinCode);
    appendPart(text, " ", firm.state.isEmpty() ? QString() : QString('(' + firm.state + ')'));
    return text;
}

QString firmContactText(const FirmTexts &firm)
{
    QString text = labelled("Mobile: ", firm.mobile);
    appendPart(text, "; ", labelled("Phone(O): ", pairOf(firm.officePhone1, firm.officePhone2)));
    appendPart(text, "; ", labelled("Phone(R): ", pairOf(firm.residencePhone1, firm.residencePhone2)));
    appendPart(text, "; ", labelled("Fax: ", firm.fax));
    return text;
}

QString firmWebText(const FirmTexts &firm)
{
    QString text = labelled("E-mail: ", firm.email);
    appendPart(text, "; ", labelled("Website: ", firm.website));
    return text;
}

QString DocumentHead::inNameCase(const QString &name) const
{
    return ledgora::inNameCase(properCase, name);
}

void addHead(Placeholders &list, const DocumentHead &document)
{
    list.add("FIRM_NAME", document.inNameCase(document.firm.name));
    list.add("FIRM_DESIG", document.firm.designation);
    list.add("FIRM_GSTIN", document.firm.gstin);
    list.add("FIRM_PAN", document.firm.pan);
    list.add("PARTY_NAME", document.inNameCase(document.partyName));
    list.add("PARTY_GSTIN", document.partyGstin);
    list.add("PARTY_PAN", document.partyPan);
    list.add("PARTY_ADDRESS", document.inNameCase(document.partyAddress));
}

void addSignature(Placeholders &list, const DocumentHead &document)
{
    list.add("AUTHSIGN_NAME", document.inNameCase(document.firm.signName));
    list.add("AUTHSIGN_DESIG", document.inNameCase(document.firm.signDesignation));
}

void addFirmTexts(Placeholders &list, const FirmTexts &firm)
{
    list.add("FIRM_ADDRESS", firmAddressText(firm));
    list.add("FIRM_CONTDET", firmContactText(firm));
    list.add("FIRM_EMLWEB", firmWebText(firm));
}

QString templatePath(const QString &templateFolder, int firmId, bool customized, const QString &stem, bool twoCopies)
{
    const QString folder = customized ? joinPath(templateFolder, QString::number(firmId)) : templateFolder;
    return findFile(folder, stem + (twoCopies ? "_2Copy" : "") + ".doc");
}

} // namespace ledgora
