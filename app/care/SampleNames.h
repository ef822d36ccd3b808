#pragma once

#include "Dice.h"
#include <QString>

namespace ledgora::app {

/// A place that sample companies and clients live in; its state's name is one of the state list.
struct SamplePlace
{
    const char *city;
    const char *state;
    int pin; ///< the first postal code of the city
};

const SamplePlace &samplePlace(Dice &dice);
/// A postal code of the place.
QString samplePin(const SamplePlace &place, Dice &dice);
/// House and street of an address.
QString sampleHouse(Dice &dice);
QString sampleStreet(Dice &dice);
QString samplePhone(Dice &dice);

/// Names of which no two are alike, by `index` from 0: a person's (capital letters), and a business's without the
/// words that tell its kind.
QString samplePerson(int index);
QString sampleBusiness(int index);
/// The name of an office of accountants.
QString sampleOffice(int index);

/// A PAN: three letters, the kind of holder (P, F, C, ...), the first letter of the holder.s name (a person.s surname),
/// four digits, a letter.
QString samplePan(Dice &dice, char kind, QChar initial);
/// The GSTIN of a holder's first registration in a state: state code, PAN, "1", "Z" and the check character over
/// these.
QString sampleGstin(const QString &stateCode, const QString &pan);

} // namespace ledgora::app
