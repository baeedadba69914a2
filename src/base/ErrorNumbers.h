#pragma once

// The error numbers the program raises and recognises, named once. The runtime's classic
// numbers for conversions and files, the database engine's for data access; users and
// support know them by these numbers, so they never change. Error inherits them, so
// Error::Overflow reads as well as ErrorNumbers::Overflow.
struct ErrorNumbers {
    enum Number : long {
        Overflow = 6,
        SubscriptOutOfRange = 9,
        TypeMismatch = 13,
        FileNotFound = 53,
        DeviceIO = 57,
        PathFileAccess = 75,
        NoCurrentRecord = 3021,
        DatabaseFileNotFound = 3024,
        ReadOnly = 3027,
        NoTransaction = 3034,
        InvalidPath = 3044,
        InvalidStatement = 3129,
        SyntaxInFromClause = 3131,
        CharactersAfterEnd = 3142,
        FieldTooSmall = 3163,
        FieldNotUpdatable = 3164,
        RecordChanged = 3197,
        InvalidOperation = 3219,
        NotUpdatable = 3251,
        ItemNotFound = 3265,
        TableNotFound = 3376,
        ConnectionClosed = 3704,
        ConnectionAlreadyOpen = 3705,
        InvalidReportFile = 31037,  // a report file (template, overview) that cannot be read
        DialogCancelled = 32755,
    };
};
