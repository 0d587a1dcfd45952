// The message catalog: 437 numbered texts with their severities, and the functions that print them. The number is the
// contract; the names here are those of the messages that the code raises. 0 means success everywhere.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

enum Message : std::uint32_t {
    kOk = 0,
    kEntryExists = 6,
    kNameNotFound = 17,
    kNameInUse = 18,
    kInvalidInterface = 19,
    kManagementTimeout = 108,
    kSaveSucceeded = 110,
    kSaveFailed = 111,
    kCurrentPasswordWrong = 112,
    kPasswordNotConfirmed = 113,
    kPasswordLength114 = 114,
    kPasswordUnchanged = 115,
    kPasswordChanged = 116,
    kResetting = 117,
    kRevertingToFactory = 118,
    kStatisticsCleared = 119,
    kPortInUse = 125,
    kHttpPortChanged = 149,
    kTelnetPortChanged = 150,
    kNatEnabled = 155,
    kNatDisabled = 156,
    kRedirectionAdded = 157,
    kRedirectionDeleted = 158,
    kDefaultDmzChanged = 159,
    kDmzTableChanged = 160,
    kContinueQuestion = 186,
    kAdvancedPromptMode = 193,
    kExpressPromptMode = 194,
    kWordTooLong = 195,
    kCliError = 196,
    kPressAnyKey = 197,
    kPasswordHasBeenChanged = 198,
    kTooManySessions = 199,
    kTimeOutGoodBye = 200,
    kHexSyntax = 201,
    kLineTooLong = 202,
    kNoHelp = 203,
    kNormalEditMode = 204,
    kSmartEditMode = 205,
    kMemoryLow = 206,
    kNotAKeyword = 207,
    kNotALegalInput = 208,
    kExtraInput = 209,
    kAmbiguousKeyword = 210,
    kSessionOutOfMemory = 211,
    kWelcome = 212,
    kIncorrectPassword = 213,
    kPasswordTooLong = 214,
    kLoggedOut = 215,
    kLoginTimeExpired = 216,
    kInvalidCharacter = 229,
    kMacEapOrBoth = 230,
    kInvalidDate = 237,
    kNoTopicHelp = 243,
    kIncompleteCommand = 245,
    kConfirmationDiffers = 246,
    kWrongPassword = 247,
    kInvalidIPAddress = 248,
    kNetmaskRule = 249,
    kStringRule = 251,  // takes the limit
    kInvalidMACAddress = 253,
    kPasswordLength = 256,
    kInvalidTime = 268,
    kSessionTimeoutRange = 269,
    kRemoteClientCount = 274,
    kRemoteClientAddress = 275,
    kYesOrNo = 276,
    kNatProtocolRule = 297,
    kFilterProtocolRule = 298,
    kTcpUdpPortRange = 299,
    kEndingPortBelowStarting = 300,
    kSingleOrRange = 301,
    kFilterPortRule = 302,
    kFilterAddressRule = 303,
    kFilterDirectionRule = 304,
    kFilterActionRule = 305,
    kIpFilterNameRule = 308,
    kRedirectionTypeRule = 310,
    kRedirectNameRule = 311,
    kMultiDmzNameRule = 312,
    kInvalidDecimal = 313,
    kPublicPortRange = 319,
    kLocalPortRange = 320,
    kTriggeringPortRange = 321,
    kOpenedPortRange = 322,
    kLocalServerRule = 324,
    kNatAddressRule = 325,
    kDmzHostRule = 326,
    kInvalidTimezone = 334,
    kInvalidNatAddress = 335,
    kInvalidPrivatePort = 337,
    kInvalidPortRange = 340,
    kUserNameEmpty = 342,
    kRadiusPortRange = 359,
    kRadiusRetryRange = 361,
    kRegulatoryDomain = 362,
    kChannelOutsideDomain = 363,
    kWepKeyLength = 364,
    kKeyIndexRange = 365,
    kRtsCtsRange = 366,
    kFragmentRange = 367,
    kBeaconRange = 368,
    kDtimRange = 369,
    kRadiusReattemptRange = 370,
    kMacFilterMode = 371,
    kLogLevelRange = 372,
    kPingRequestRange = 373,
    kPingSizeRange = 374,
    kNotATerminal = 375,
    kNoVdisable = 376,
    kTcgetattrFailed = 377,
    kTcsetattrFailed = 378,
    kOperationalMode = 379,
    kWdsPeerDeleteFailed = 380,  // takes the name
    kAddressIsOwn = 381,
    kAddressIsBroadcast = 382,
    kAddressIsNetwork = 383,
    kLeaseTimeRange = 384,
    kAddressIsLoopback = 385,
    kUpperPoolBelowLower = 386,
    kAddressIsZero = 387,
    kAddressIsAllOnes = 388,
    kAddressIsMulticast = 389,
    kNotInGatewaySubnet = 390,
    kDhcpPoolTooWide = 393,  // takes the limit
    kRadioName = 417,
    kRadioOrLanName = 418,
    kTimeServerName = 430,
    kRequestIntervalRange = 431,
    kUnknownFacility = 432,
    kFacilityAlreadyOn = 433,
    kFacilityAlreadyOff = 434,
    kHostNameEmpty = 435,
    kHostnameLength = 436,  // takes the limit
};
inline constexpr std::size_t kMessages = 437;

enum class Severity : std::uint8_t { notice = 0, warning = 1, error = 2, snmp = 3 };

struct CatalogEntry {
    std::uint32_t flags;  // top byte: the severity in its low seven bits, kPatched above them
    const char* text;     // a printf format
};
inline constexpr std::uint32_t kPatched = 0x80000000;

extern std::array<CatalogEntry, kMessages> errMsg;

inline constexpr std::size_t kMessageSize = 512;  // bytes of a composed message, NUL included

// Prints a message: prefix of its severity, text with the arguments, wrapped at 80 columns, the severity's line ending.
// kContinueQuestion gets no line ending. Returns 0.
int PrintMsg(int term, std::uint32_t number, ...);

// The same text with its line ending into `buffer` (kMessageSize bytes), not wrapped. Returns 0.
int SPrintMsg(char* buffer, std::uint32_t number, ...);

// Prints a text that the catalog does not have as PrintMsg prints a warning; cut to the room of a message.
void print_warning(int term, const char* text);

// Formats the text of `number` aside. Mode 2: the next print of that number shows it instead, once. Any other mode: it
// becomes the catalog text for good. Returns 0.
int PatchMsg(int mode, std::uint32_t number, ...);

// The text that the next print would start from; takes a patched text's mark away.
const char* GetMsgText(std::uint32_t number);
