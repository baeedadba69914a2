#include "exchange/ubl/UblCodes.h"

#include <QRegularExpression>
#include <QStringList>
#include <array>

namespace exchange::ubl {
namespace {

// Letters only, lower case, accents dropped: "Tsjechië" and "tsjechie" are one country.
QString plainKey(const QString& text) {
    QString key;
    for (const QChar c : text.normalized(QString::NormalizationForm_D)) {
        if (c.isLetter() && c.unicode() < 0x80) {
            key += c.toLower();
        }
    }
    return key;
}

struct Country {
    const char* code;
    bool eu;
    std::array<const char*, 5> names;  // as plain keys; the unused ones null
};

// The countries of the EU and the ones a Dutch small business most often invoices beyond.
const std::array<Country, 43> kCountries{{
    {"NL", true, {"nederland", "holland", "thenetherlands", "netherlands"}},
    {"BE", true, {"belgie", "belgium", "belgique"}},
    {"DE", true, {"duitsland", "germany", "deutschland"}},
    {"FR", true, {"frankrijk", "france"}},
    {"LU", true, {"luxemburg", "luxembourg"}},
    {"AT", true, {"oostenrijk", "austria", "osterreich"}},
    {"IT", true, {"italie", "italy", "italia"}},
    {"ES", true, {"spanje", "spain", "espana"}},
    {"PT", true, {"portugal"}},
    {"IE", true, {"ierland", "ireland"}},
    {"DK", true, {"denemarken", "denmark", "danmark"}},
    {"SE", true, {"zweden", "sweden", "sverige"}},
    {"FI", true, {"finland", "suomi"}},
    {"PL", true, {"polen", "poland", "polska"}},
    {"CZ", true, {"tsjechie", "czechia", "czechrepublic"}},
    {"SK", true, {"slowakije", "slovakia"}},
    {"SI", true, {"slovenie", "slovenia"}},
    {"HR", true, {"kroatie", "croatia"}},
    {"HU", true, {"hongarije", "hungary"}},
    {"RO", true, {"roemenie", "romania"}},
    {"BG", true, {"bulgarije", "bulgaria"}},
    {"GR", true, {"griekenland", "greece"}},
    {"CY", true, {"cyprus"}},
    {"MT", true, {"malta"}},
    {"EE", true, {"estland", "estonia"}},
    {"LV", true, {"letland", "latvia"}},
    {"LT", true, {"litouwen", "lithuania"}},
    {"GB", false, {"verenigdkoninkrijk", "grootbrittannie", "engeland", "unitedkingdom", "uk"}},
    {"CH", false, {"zwitserland", "switzerland", "schweiz", "suisse"}},
    {"NO", false, {"noorwegen", "norway", "norge"}},
    {"IS", false, {"ijsland", "iceland"}},
    {"LI", false, {"liechtenstein"}},
    {"US", false, {"verenigdestaten", "unitedstates", "usa", "amerika"}},
    {"CA", false, {"canada"}},
    {"AU", false, {"australie", "australia"}},
    {"NZ", false, {"nieuwzeeland", "newzealand"}},
    {"JP", false, {"japan"}},
    {"CN", false, {"china"}},
    {"TR", false, {"turkije", "turkey"}},
    {"MA", false, {"marokko", "morocco"}},
    {"SR", false, {"suriname"}},
    {"CW", false, {"curacao"}},
    {"AW", false, {"aruba"}},
}};

const Country* findCountry(const QString& land) {
    const QString key = plainKey(land);
    for (const Country& country : kCountries) {
        if (key.compare(QLatin1String(country.code), Qt::CaseInsensitive) == 0) {
            return &country;
        }
        for (const char* name : country.names) {
            if (name && key == QLatin1String(name)) {
                return &country;
            }
        }
    }
    return nullptr;
}

QString withoutSeparators(const QString& typed) {
    static const QRegularExpression separators(QStringLiteral("[\\s.\\-]"));
    return QString(typed).remove(separators).toUpper();
}

}  // namespace

QString unitCode(const QString& eenheid) {
    static const std::pair<QLatin1String, QLatin1String> kUnits[] = {
        {QLatin1String("stuk"), QLatin1String("H87")},
        {QLatin1String("stuks"), QLatin1String("H87")},
        {QLatin1String("st"), QLatin1String("H87")},
        {QLatin1String("uur"), QLatin1String("HUR")},
        {QLatin1String("uren"), QLatin1String("HUR")},
        {QLatin1String("kg"), QLatin1String("KGM")},
        {QLatin1String("kilo"), QLatin1String("KGM")},
        {QLatin1String("kilogram"), QLatin1String("KGM")},
    };
    const QString key = plainKey(eenheid);
    for (const auto& [unit, code] : kUnits) {
        if (key == unit) {
            return code;
        }
    }
    return QStringLiteral("C62");
}

QString countryCode(const QString& land) {
    if (land.trimmed().isEmpty()) {
        return QStringLiteral("NL");
    }
    const Country* country = findCountry(land);
    return country ? QLatin1String(country->code) : QString();
}

bool isEuMember(const QString& countryCode) {
    const Country* country = findCountry(countryCode);
    return country && country->eu;
}

QString normalizedVatNumber(const QString& typed, const QString& countryCode) {
    const QString number = withoutSeparators(typed);
    if (number.isEmpty() ||
        (number.size() >= 2 && number.at(0).isLetter() && number.at(1).isLetter())) {
        return number;
    }
    return (countryCode == QLatin1String("GR") ? QStringLiteral("EL") : countryCode) + number;
}

QString vatEndpointScheme(const QString& vatNumber) {
    static const std::pair<QLatin1String, QLatin1String> kSchemes[] = {
        {QLatin1String("NL"), QLatin1String("9944")}, {QLatin1String("BE"), QLatin1String("9925")},
        {QLatin1String("DE"), QLatin1String("9930")}, {QLatin1String("FR"), QLatin1String("9957")},
        {QLatin1String("LU"), QLatin1String("9938")}, {QLatin1String("AT"), QLatin1String("9914")},
        {QLatin1String("ES"), QLatin1String("9920")}, {QLatin1String("PT"), QLatin1String("9946")},
        {QLatin1String("IE"), QLatin1String("9935")}, {QLatin1String("PL"), QLatin1String("9945")},
        {QLatin1String("CZ"), QLatin1String("9929")}, {QLatin1String("SK"), QLatin1String("9950")},
        {QLatin1String("SI"), QLatin1String("9949")}, {QLatin1String("HR"), QLatin1String("9934")},
        {QLatin1String("HU"), QLatin1String("9910")}, {QLatin1String("RO"), QLatin1String("9947")},
        {QLatin1String("BG"), QLatin1String("9926")}, {QLatin1String("EL"), QLatin1String("9933")},
        {QLatin1String("CY"), QLatin1String("9928")}, {QLatin1String("MT"), QLatin1String("9943")},
        {QLatin1String("EE"), QLatin1String("9931")}, {QLatin1String("LV"), QLatin1String("9939")},
        {QLatin1String("LT"), QLatin1String("9937")}, {QLatin1String("GB"), QLatin1String("9932")},
        {QLatin1String("CH"), QLatin1String("9927")}, {QLatin1String("LI"), QLatin1String("9936")},
        {QLatin1String("TR"), QLatin1String("9952")},
    };
    const QStringView prefix = QStringView(vatNumber).left(2);
    for (const auto& [country, scheme] : kSchemes) {
        if (prefix == country) {
            return scheme;
        }
    }
    return QString();
}

QString normalizedIban(const QString& typed) {
    const QString iban = withoutSeparators(typed);
    static const QRegularExpression form(QStringLiteral("^[A-Z]{2}[0-9]{2}[A-Z0-9]{11,30}$"));
    if (!form.match(iban).hasMatch()) {
        return QString();
    }
    // ISO 13616: the first four characters moved to the end, letters as 10..35, mod 97 = 1.
    const QString moved = iban.mid(4) + iban.left(4);
    int remainder = 0;
    for (const QChar c : moved) {
        const int value = c.isDigit() ? c.digitValue() : c.unicode() - 'A' + 10;
        remainder = (remainder * (value < 10 ? 10 : 100) + value) % 97;
    }
    return remainder == 1 ? iban : QString();
}

QString normalizedKvkNumber(const QString& typed) {
    return withoutSeparators(typed);
}

}  // namespace exchange::ubl
