#include "records/clsObjBTW.h"

#include "base/Error.h"

using Self = clsObjBTW;

double clsObjBTW::GeefBTWPercentage(qint16 tarief) const {
    switch (tarief) {
        case 1:
            return m_BTW1;
        case 2:
            return m_BTW2;
        default:
            return 0;
    }
}

clsObjBTW clsObjBTW::rowInUse() {
    const QList<clsObjBTW> visible = clsObjBTW().Lijst("Zichtbaar=true");
    if (visible.isEmpty()) {
        throw Error::subscriptOutOfRange(QStringLiteral("clsObjBTW"));
    }
    return visible.first();
}

const persist::Columns<Self>& clsObjBTW::writeColumns() {
    static const persist::Columns<Self> columns{
        {"BTW1", &Self::m_BTW1},
        {"BTW2", &Self::m_BTW2},
        {"Zichtbaar", &Self::m_Zichtbaar},
    };
    return columns;
}

const persist::Columns<Self>& clsObjBTW::readColumns() {
    static const persist::Columns<Self> columns =
        persist::keyThen<Self>({"BTWId", &Self::m_BTWId}, writeColumns());
    return columns;
}
