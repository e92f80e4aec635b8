#pragma once

/// Why an operation of the client failed. A comment names the details of a code, in the order in which its sentence has
/// them.
enum class Error {
    None,
    // --- The database
    DatabaseNotOpen,
    DatabaseBusy,
    DatabaseReadOnly,
    DatabaseCorrupt,
    DiskFull,
    NotADatabase,
    DatabaseFailed, ///< the driver's text
    // --- Price formulas
    FormulaErrorAt, ///< number of the character; the cause says what is wrong there
    FormulaEmpty,
    FormulaTooLong, ///< largest number of characters
    FormulaTooDeep, ///< largest number of levels
    FormulaIncomplete,
    FormulaSyntax,
    UnsupportedCharacter, ///< the character
    MalformedNumber,      ///< the number
    UnknownName,          ///< the name
    MissingParenthesis,
    MisplacedParenthesis,
    MisplacedComma,
    CommaOutsideFunction,
    TooManyArguments,
    TooFewArguments,
    DivisionByZero,
    PriceNotAvailable, ///< the price's name
    PriceNotFinite,
    PriceNotPositive,
};
