#pragma once

/// Error codes of the client's operations. The comment of a code lists the details of its sentence, in order.
enum class Error {
    None,
    // --- The database
    DatabaseNotOpen,
    DatabaseBusy,
    DatabaseReadOnly,
    ServerReadOnly,
    DatabaseCorrupt,
    DiskFull,
    NotADatabase,
    DiskFailed,     ///< SQLite's code
    DatabaseFailed, ///< the driver's text
    ContentTooLarge,
    DatabaseFileChanged,
    TransactionEnded,
    NumbersExhausted,
    CannotOpenDatabase, ///< file; cause
    NoDatabaseFile,
    DatabaseIsFolder,
    CannotCreateFolder,
    ForeignDatabase,
    NewerDatabase, ///< the file's version, the latest known one
    NoWriteAheadLog,
    FolderNotWritable,
    MigrationFailed,   ///< cause
    UnknownObject,     ///< kind, name
    ChangedObject,     ///< kind, name
    MissingObject,     ///< kind, name
    InspectionTooLong, ///< seconds
    DatabaseTooLarge,  ///< largest size in GiB
    BackupFailed,      ///< database; cause
    FileExists,        ///< file
    // --- The database on a server
    MalformedLocation,
    PasswordInLocation,
    NoServerDriver,
    NoConnection, ///< the driver's text
    ConnectionLost,
    LockedByOthers,
    ServerTooSlow,
    AlreadyStored,
    ServerNotSetUp,
    OlderDatabase, ///< the database's version, the required one
    NotPermitted,
    UserIsRole, ///< the role
    BackupOfServer,
    // --- The administration of a server's database
    AdminNeedsServer,
    NotAdministrator,  ///< the role
    MayNotManageRoles, ///< the role
    UnusableUserId,    ///< user id
    RoleWithPowers,    ///< user id
    UserHasOtherName,  ///< user id, name
    NameOfOtherUser,   ///< name, user id
    EmptyText,         ///< caption
    NoPassword,
    AccountIncomplete, ///< account, the missing items
    MalformedItem,     ///< text, the items that there are
    LimitTooLarge,     ///< caption, largest number
    // --- Moving a file's contents to a server
    MoveOfServer,
    MoveToFile,
    TableNotMoved,      ///< table; cause
    OtherDataOnServer,  ///< table, what differs
    MovedRowsDiffer,    ///< table, what differs
    MoveOutcomeUnknown, ///< cause
    MoveInterrupted,    ///< cause
    // --- Stored plans and instructions
    EmptyPlan,
    FieldNotText,         ///< record key
    FieldUnknown,         ///< record key
    FieldTooLong,         ///< record key, largest number of characters
    FieldNotStorable,     ///< record key
    UnknownPlan,          ///< plan id
    PlanNotRead,          ///< plan id
    PlanIsNewer,          ///< plan id
    PlanChangedMeanwhile, ///< name of the user, time, captions of the fields
    OutcomeUnknown,       ///< cause
    StateNotPossible,     ///< plan id, present state, wanted state
    PlanHasEnded,         ///< plan id, state
    NoReason,
    ReasonTooLong,      ///< largest number of characters
    UnknownInstruction, ///< instruction id
    DamagedCloses,      ///< symbol
    DamagedPlan,        ///< plan id
    DamagedHistory,     ///< number of the entry
    PlanValueUnknown,   ///< plan id, caption, value
    PlanValueInvalid,   ///< plan id, caption, value
    InstructionInvalid, ///< instruction id, what it contains
    SecurityInvalid,    ///< symbol
    PositionInvalid,    ///< account, symbol
    SignatureInvalid,   ///< client number, protocol
    LimitInvalid,       ///< account, number of the exception
    // --- The sample data
    MarketSizeOutOfRange, ///< smallest, largest size
    NoLastClose,
    SampleCancelled,
    TodayNotInCalendar, ///< today
    // --- The session
    UnknownUser, ///< user id
    PlansNeedLogin,
    AveragesNeedLogin,
    TradeDaysNeedLogin,
    IssuingNeedsLogin,
    SigningNeedsLogin,
    // --- Agreements
    EmptyAgreement,   ///< protocol
    UnknownAgreement, ///< protocol
    NoSigner,
    ForeignClient, ///< client number
    // --- The trade calendar
    NoClosureHeadings,     ///< the missing headings
    BadClosureLine,        ///< number of the line; the cause says what is wrong in it
    ClosureColumns,        ///< number of columns in the line
    NotADate,              ///< the text
    NoRulebookHeadings,    ///< the missing headings
    BadRulebookLine,       ///< number of the line; the cause says what is wrong in it
    RulebookColumns,       ///< number of columns in the line
    RulebookGap,           ///< the first day of the line, the day after the period before
    NoCalendar,            ///< exchange
    BeyondCalendar,        ///< the last known day, the unknown day
    ClosureYearMissing,    ///< market, year
    ClosureFileUnreadable, ///< file; cause
    CalendarEnds,          ///< the last known day, days until then
    CalendarEnded,         ///< the last known day
    // --- Checks of a plan; captions are those of the form
    PlanHasId,
    NoOtherParam,
    OtherParamNotJson,
    UnknownCode, ///< caption, code
    NoAccount,
    UnknownAccount,     ///< account
    NoAuthority,        ///< account
    UserWithoutAccount, ///< user id
    UserWithoutRight,   ///< user id
    NoSecurity,
    UnknownSecurity,        ///< symbol
    WrongExchange,          ///< symbol, exchange
    NoSecurityAccount,      ///< account
    ForeignSecurityAccount, ///< security account
    NotPositiveWhole,       ///< caption, text
    NotWhole,               ///< caption, text
    NotPositive,            ///< caption, text
    NotNumber,              ///< caption, text
    RatioOutOfRange,        ///< the text
    BadFormula,             ///< caption; the cause says what is wrong
    InvalidDate,            ///< caption
    NotATradeDay,           ///< caption, day
    NotInCalendar,          ///< caption, day
    EndBeforeBegin,
    RemarkTooLong,      ///< largest number of characters
    FieldNotChangeable, ///< caption
    BeginNotChangeable,
    BeginInPast,      ///< the day
    ForeignCreator,   ///< user id in the record
    TypeNotOfAccount, ///< account, instruction type
    SideNotOfType,    ///< instruction type
    ReviewRequired,   ///< account
    ReductionBuys,
    NoExecutor,
    UnknownExecutor, ///< name
    UnknownAssignee, ///< name
    TargetTypeMissing,
    TotalBelowUsed, ///< what is used
    NoUsablePrice,  ///< the cause says why
    // --- Limits of an account
    NoLimits,
    QuantityAboveLimit, ///< quantity, largest quantity
    AmountAboveLimit,   ///< amount in yuan, largest amount
    PriceOutsideBand,   ///< price, lowest, highest price
    // --- The instructions of a day
    NoCloses, ///< symbol
    PriceOutOfRange,
    LessThanOneLot,
    NothingLeft,
    NothingToSell,
    MoreThanSellable,
    MoreThanIssued,
    NotEnoughCash,     ///< what is left, what a lot costs, both in yuan
    OutsideTradeHours, ///< first, last time of the market's day
    NotToday,          ///< the day, today
    // --- Conversion of bonds into shares
    NotACreditAccount,
    ConversionNotASale,
    NotConvertible,   ///< symbol
    NothingToConvert, ///< symbol
    // --- Programs
    MalformedCommandLine, ///< what is wrong with it
    ExtraArgument,        ///< the argument
    NoFolder,
    OptionWithoutValue, ///< name of the option
    NoStrategyFolder,   ///< path
    UnknownSkin,        ///< the name, the names that there are
    UnknownLanguage,    ///< the code, the codes that there are
    MalformedDay,       ///< the text
    NoDisplay,
    NoTranslation,          ///< file
    CommandWithoutArgument, ///< command, its arguments
    OptionOfCommand,        ///< option, command that has it
    OptionNotOfCommand,     ///< option, command that does not have it
    FileNotWritten,         ///< file
    DatabaseHasSecurities,  ///< file, how many
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
    // --- Strategy files
    StrategyFileRefused,    ///< file; cause, with its line
    StrategyFileUnreadable, ///< file; cause
    StrategyFileLine,       ///< line; cause
    NotAFile,
    FileNotOpened,
    FileTooLarge, ///< largest number of bytes
    FileIncomplete,
    InvalidXml,
    UnknownEncoding,   ///< encoding
    InvalidEncoding,   ///< encoding
    TooManyAttributes, ///< largest number
    TooManyElements,   ///< largest number
    ElementsTooDeep,   ///< largest number of levels
    WrongRoot,         ///< element
    NoStrategy,
    DtdNotAllowed,
    // --- Why a strategy of a file is refused
    TextBetweenElements, ///< element, text
    TextTooLong,         ///< element, largest number of characters
    TooMany,             ///< element, largest number
    TooManyConditions,
    UnsupportedElement,        ///< element
    UnsupportedAttribute,      ///< element, attribute
    MissingAttribute,          ///< element, attribute
    AttributeOfOtherType,      ///< type, attribute
    AttributeTooLong,          ///< attribute, largest number of characters
    AttributeNotInteger,       ///< attribute, value, smallest, largest integer
    AttributeNotBoolean,       ///< attribute, value
    AttributeNotName,          ///< attribute, value
    UnsupportedAttributeValue, ///< attribute, value, the possible ones
    EqualBooleanValues,
    UnsupportedParameterType, ///< type
    UnsupportedControlType,   ///< type
    UnknownTimeZone,          ///< time zone
    DuplicateStrategy,        ///< strategy
    SecondLayout,             ///< strategy
    NoPanel,
    RuleWithoutComparison, ///< element
    SecondComparison,      ///< element
    EditWithTwoOperators,
    EditWithoutOperator,
    EditWithoutOperands,
    EditFieldOfCombination, ///< attribute
    ComparisonWithoutOperand,
    ComparisonWithTwoOperands,
    UnknownEdit,               ///< id
    DuplicateEdit,             ///< id
    EditCycle,                 ///< id
    DuplicateParameter,        ///< parameter
    InvalidParameterAttribute, ///< parameter, attribute, value; cause
    LimitsReversed,            ///< parameter
    DuplicateEnumId,           ///< parameter, id
    DuplicateControl,          ///< control
    SecondControl,             ///< parameter
    ControlWithoutParameter,   ///< control, parameter
    ControlOfConstant,         ///< control, parameter
    ControlOfOtherType,        ///< control, parameter
    ListItemsOfOtherType,      ///< control
    DuplicateListItem,         ///< control, id
    UnknownEnumId,             ///< control, id, parameter
    InvalidStep,               ///< control, step
    InvalidDefault,            ///< control, value; cause
    RuleWithoutParameter,      ///< parameter
    RuleWithoutControl,        ///< control
    InvalidRuleValue,          ///< parameter or control, value; cause
    RuleOfOtherTypes,          ///< both parameters
    InvalidStateValue,         ///< control, value; cause
    StateRuleCycle,            ///< control
    // --- Why a strategy of a file is not offered
    ParameterWithDate,       ///< parameter, type
    ParameterOfData,         ///< parameter
    ParameterOfPlan,         ///< parameter, FIX tag
    ParameterWithoutControl, ///< parameter
    ListWithoutEntries,      ///< parameter
    InvertedWithoutValues,   ///< parameter
    OtherMessage,            ///< message type
    SeveralOrders,           ///< attribute
    RepeatingGroup,
    NotOfSeveral,
    StrategyNameTaken, ///< strategy
    // --- Harmless departures of a file from the standard
    ProcessingInstruction, ///< its target
    AttributeExpected,     ///< element, attribute
    ElementExpected,       ///< element, child
    AttributeIgnored,      ///< type, attribute
    NameNotStandard,       ///< attribute, value
    ValueTakenAs,          ///< attribute, value, meaning
    TypeNotStandard,       ///< type
    SpaceNotStandard,      ///< element
    OrderNotStandard,      ///< element, the one before
    ControlsBesidePanels,
    SecondPanel,
    DuplicateWireValue,  ///< parameter, value
    ParameterNeverSent,  ///< parameter
    ParameterWithoutTag, ///< parameter
    RuleSkipped,         ///< field
    StateRuleWithoutEffect,
    // --- Values of strategy parameters; each sentence is the second half of one
    ValueMissing,
    ValueNotConstant, ///< constant
    ValueNotListed,
    ValueNotNumber,
    ValueNotInteger,
    ValueTooFine,    ///< largest number of decimals
    ValueTooSmall,   ///< smallest value
    ValueTooLarge,   ///< largest value
    ValueOutOfRange, ///< smallest, largest value
    ValueNotTime,
    ValueNotPrintable,
    ValueNotCharacter,
    ValueTooLong,  ///< largest number of characters
    ValueTooShort, ///< smallest number of characters
    ValueMalformed,
    // --- Choice and parameters of a strategy
    UnknownStrategy,
    StrategyNotDefined, ///< strategy
    StrategyNotOffered, ///< strategy
    InvalidParameter,   ///< parameter; cause
    InvalidInput,       ///< label; cause
    InvalidInputInUnit, ///< label, unit; cause
    RuleBroken,         ///< the rule's own sentence
    // --- Typed numbers and dates
    NumberMalformed,   ///< text
    NumberGrouping,    ///< text
    NumberUnitUnknown, ///< what follows the digits
    NumberInOtherUnit, ///< the field's unit, the typed unit
    NumberLotUnknown,
    NumberWithoutLots, ///< the field's unit
    NumberNotWhole,
    NumberTooFine, ///< largest number of decimals
    NumberIncomplete,
    NumberTooSmall,  ///< smallest number
    NumberTooLarge,  ///< largest number
    DateMalformed,   ///< text
    NoSuchDate,      ///< text
    TooFewTradeDays, ///< the typed number of days
    DateTooEarly,    ///< date, first date
    DateTooLate,     ///< date, last date
    DateExcluded,    ///< date
    LastBeforeFirst, ///< first date
    InputRefused,    ///< caption, why the text of the field cannot be used
    // --- Tables in files, their import and export
    NulInText,
    WrongEncoding, ///< encoding
    Utf16Text,
    RowTooLong,   ///< largest number of bytes
    TooManyCells, ///< largest number
    QuoteMisplaced,
    QuoteNotClosed,
    WorkbookInvalid,
    WorkbookTooLarge, ///< largest number of bytes
    NoJsonTable,
    TableNotWritten, ///< why
    Cancelled,
    NoHeadings,
    UnknownHeading,   ///< heading, the columns that there are
    DuplicateHeading, ///< heading
    MissingHeadings,  ///< the missing columns
    CellBeyondHeadings,
    CellMissing,            ///< caption
    DateWithoutYear,        ///< text
    DuplicateLine,          ///< what identifies the line, the other line
    SecurityInUse,          ///< symbol, caption
    StillInUse,             ///< what would be removed
    CloseMissing,           ///< symbol, day
    NotADayOfSecurity,      ///< symbol, day
    MalformedSymbol,        ///< symbol
    TradeableAboveQuantity, ///< tradeable quantity, quantity
    NotInUnits,             ///< quantity, factor
    UserNameInUse,          ///< user id
    FileNotImported,        ///< number of faults
    ImportNotConfirmed,
    NothingStored,
    ReplaceNotPossible, ///< kind
    UnknownKind,        ///< kind, the kinds that there are
    PlanOfOtherVersion, ///< plan id, version in the file, version
    UnknownFileFormat,  ///< file name
    QuantityAndAmount,
    ParametersNotJson,
    StateNotImported, ///< state
    ReplaceOneFile,
    TooManyRowsForSheet, ///< most rows
    DayMissed,
    SecurityNotOffered, ///< symbol, instruction type
    AmountNotOffered,   ///< symbol, instruction type
    AlgorithmNeedsMode,
    ModeNeedsReview,           ///< mode
    ModeNotOffered,            ///< mode
    StrategyNeedsLimit,        ///< strategy
    UnknownAlgorithmParameter, ///< strategy, parameter
    FileRefused,               ///< file; cause
    Count,                     ///< not a failure: how many codes there are
};
