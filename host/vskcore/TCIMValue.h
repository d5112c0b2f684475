#pragma once

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "vskcore/TCIMChar16.h"
#include "vskcore/TCIMDateTime.h"
#include "vskcore/TCIMReference.h"
#include "vskcore/TContext.h"

namespace NQELVSK20 {

class ICIMClass;

/// A typed CIM value: null, a scalar or an array. Copies are deep and independent.
///
/// The conversions are implicit, as the host's users expect of them. Rules, the same for all of them:
/// - numbers, booleans and char16 codes convert into each other; an integer out of the target's range wraps
///   modulo 2^n, a real out of range gives the nearest limit, and NaN gives the integer 0;
/// - text converts to a number or boolean when it is one (decimal, "true", "false"), else to 0 or false;
/// - text converts to a datetime or reference with that text; a number does not, and gives an empty one;
/// - text and datetimes convert to text as they are, all else as ToString(10) writes it;
/// - a null value converts to 0, false or empty;
/// - an array converts as its first element does, an empty one as null.
class TCIMValue {
public:
    /// The type of a value or element. The array code of a type is its scalar code plus 16.
    class TCIMType {
    public:
        enum ECIMType {
            eUnknown = 0,
            eBoolean = 1,
            eUint8 = 2,
            eSint8 = 3,
            eUint16 = 4,
            eSint16 = 5,
            eUint32 = 6,
            eSint32 = 7,
            eUint64 = 8,
            eSint64 = 9,
            eReal32 = 10,
            eReal64 = 11,
            eChar16 = 12,
            eString = 13,
            eDateTime = 14,
            eReference = 15,
            eUnknownArray = 16,
            eBooleanArray = 17,
            eUint8Array = 18,
            eSint8Array = 19,
            eUint16Array = 20,
            eSint16Array = 21,
            eUint32Array = 22,
            eSint32Array = 23,
            eUint64Array = 24,
            eSint64Array = 25,
            eReal32Array = 26,
            eReal64Array = 27,
            eChar16Array = 28,
            eStringArray = 29,
            eDateTimeArray = 30,
            eReferenceArray = 31
        };

        TCIMType(ECIMType type)
            : type_(type) {}  // NOLINT(google-explicit-constructor): the contract converts
        operator ECIMType() const { return type_; }  // NOLINT(google-explicit-constructor)

    private:
        ECIMType type_;
    };

    /// A null value of unknown type.
    TCIMValue();
    TCIMValue(bool value);
    TCIMValue(signed char value);
    TCIMValue(unsigned char value);
    TCIMValue(short value);
    TCIMValue(unsigned short value);
    TCIMValue(int value);
    TCIMValue(unsigned int value);
    TCIMValue(long long value);
    TCIMValue(unsigned long long value);
    TCIMValue(float value);
    TCIMValue(double value);
    TCIMValue(const char* value);  ///< A null pointer gives a null string value.
    TCIMValue(const std::string& value);
    TCIMValue(const TCIMChar16& value);
    TCIMValue(const TCIMDateTime& value);
    TCIMValue(TCIMReference& value);

    /// A null value of a type. An array code, or an array size above 0, makes it an array (of `arraySize`
    /// null elements when the size is not 0).
    TCIMValue(TCIMType type, unsigned int arraySize);

    /// An array of `elements`; `type` is the element type, as scalar or array code. An `arraySize` other
    /// than 0 cuts the elements, or fills them up with null ones, to that size.
    TCIMValue(TCIMType type, unsigned int arraySize, const std::vector<TCIMValue>& elements);

    TCIMValue(const TCIMValue& other);
    TCIMValue(TCIMValue&& other) noexcept;
    ~TCIMValue();
    TCIMValue& operator=(const TCIMValue& other);
    TCIMValue& operator=(TCIMValue&& other) noexcept;

    operator bool() const;
    operator signed char() const;
    operator unsigned char() const;
    operator short() const;
    operator unsigned short() const;
    operator int() const;
    operator unsigned int() const;
    operator long long() const;
    operator unsigned long long() const;
    operator float() const;
    operator double() const;
    operator std::string() const;
    operator TCIMChar16() const;
    operator TCIMDateTime() const;
    operator TCIMReference() const;

    /// The elements of an array; they live as long as this value is neither changed nor destroyed. A scalar
    /// or a null array has none: what is added to its empty vector is lost.
    operator std::vector<TCIMValue>&();
    operator const std::vector<TCIMValue>&() const;

    bool IsNull() const;
    bool IsArray() const;

    /// True for a value of reference type, null or not, scalar or array.
    bool IsReference() const;

    /// The scalar code of a scalar, and of an array the code that it was built with.
    TCIMType GetType() const;

    /// The value as text: integers in `base` (2 to 36; any other counts as 10), booleans "true"/"false",
    /// reals in the shortest form that reads back the same, datetimes in their 25 characters, references as
    /// their path, char16 as its decimal code, null as "", array elements joined by ",". A host may print
    /// strings and datetimes in a form of its own (THostSetup::SetPrintedForm).
    std::string ToString(unsigned char base) const;

    /// Turns a value into the string `text`; a value of another type becomes a string value.
    void Set(const std::string& text);

    /// The class that a reference value points at; empty when none was set.
    boost::shared_ptr<ICIMClass> GetReferencedClass() const;

    /// Marks the value as a reference to objects of a class, which it keeps weakly. A value of another type
    /// becomes a null reference, or a null array of references if it was an array.
    void SetReferencedClass(boost::shared_ptr<ICIMClass> referencedClass);

    /// True unless both have equal element types, array flags and contents, where null equals only null. The
    /// class that a reference points at is no part of its content.
    bool operator!=(const TCIMValue& other) const;

private:
    using Elements = std::vector<TCIMValue>;

    // Null is the monostate. Booleans, unsigned integers and char16 codes are unsigned, datetimes are text.
    // Nothing but long text, references and arrays allocates; a reference is never changed, so copies share.
    using Content = std::variant<std::monostate, long long, unsigned long long, double, std::string,
                                 std::shared_ptr<const TCIMReference>, Elements>;

    static TCIMValue NullOf(TCIMType::ECIMType type);

    TCIMType::ECIMType ElementType() const;
    const TCIMValue& First() const;
    std::variant<long long, unsigned long long, double> ToNumber() const;
    template <typename TARGET>
    TARGET ToArithmetic() const;

    Content content_;
    TCIMType::ECIMType type_;  // a null array always has an array code
    boost::weak_ptr<ICIMClass> referencedClass_;
};

}  // namespace NQELVSK20
