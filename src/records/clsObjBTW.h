#pragma once

#include "store/PersistentRecord.h"

// The two VAT percentages in use: one row of BTW. Older rows stay, hidden, for the
// invoices that refer to them.
class clsObjBTW : public PersistentRecord<clsObjBTW> {
public:
    // The percentage of VAT class 1 or 2; 0 for any other class.
    double GeefBTWPercentage(qint16 tarief) const;

    qint32 BTWId() const { return m_BTWId; }
    void setBTWId(qint32 value) { m_BTWId = value; }
    double BTW1() const { return m_BTW1; }
    void setBTW1(double value) { m_BTW1 = value; }
    double BTW2() const { return m_BTW2; }
    void setBTW2(double value) { m_BTW2 = value; }
    bool Zichtbaar() const { return m_Zichtbaar; }
    void setZichtbaar(bool value) { m_Zichtbaar = value; }

    // The VAT row in use: the first visible row. Error 9 when there is none.
    static clsObjBTW rowInUse();

private:
    friend class PersistentRecord<clsObjBTW>;
    static constexpr const char* Table = "BTW";
    static constexpr const char* KeyName = "BTWId";
    static qint32 clsObjBTW::*keyMember() { return &clsObjBTW::m_BTWId; }
    static const persist::Columns<clsObjBTW>& writeColumns();
    static const persist::Columns<clsObjBTW>& readColumns();

    qint32 m_BTWId = 0;
    double m_BTW1 = 0;
    double m_BTW2 = 0;
    bool m_Zichtbaar = false;
};

// Lists of records move them as plain memory when they grow.
Q_DECLARE_TYPEINFO(clsObjBTW, Q_RELOCATABLE_TYPE);
