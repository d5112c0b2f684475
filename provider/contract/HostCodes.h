#pragma once

#include "vskcore/ICIMQualifierDecl.h"
#include "vskcore/INamespaceProvider.h"
#include "vskcore/TCIMValue.h"
#include "vskcore/TVSKStatusCode.h"

namespace NQELVSK20 {

// The host's codes, by names of this plug-in. Their numbers are agreed with every host; what a host calls
// them is its own affair, so that no enumerator of a host's is named anywhere else in the plug-in.

constexpr auto kStatusSuccess = static_cast<EVSKStatusCode>(0);
constexpr auto kStatusNotOffered = static_cast<EVSKStatusCode>(1);
constexpr auto kStatusTypeMismatch = static_cast<EVSKStatusCode>(14);
constexpr auto kStatusNotFound = static_cast<EVSKStatusCode>(15);
constexpr auto kStatusAlreadyExists = static_cast<EVSKStatusCode>(16);
constexpr auto kStatusReferenceNotAllowed = static_cast<EVSKStatusCode>(22);
constexpr auto kStatusInvalidName = static_cast<EVSKStatusCode>(25);
constexpr auto kStatusQualifierConflict = static_cast<EVSKStatusCode>(28);
constexpr auto kStatusNotSupported = static_cast<EVSKStatusCode>(31);
constexpr auto kStatusMissingContextValue = static_cast<EVSKStatusCode>(32);
constexpr auto kStatusRemoteFailure = static_cast<EVSKStatusCode>(42);

// Elements that a qualifier may stand on: bits.
constexpr auto kScopeNone = static_cast<ICIMQualifierDecl::EScope>(0);
constexpr auto kScopeClass = static_cast<ICIMQualifierDecl::EScope>(1);
constexpr auto kScopeAssociation = static_cast<ICIMQualifierDecl::EScope>(2);
constexpr auto kScopeIndication = static_cast<ICIMQualifierDecl::EScope>(4);
constexpr auto kScopeProperty = static_cast<ICIMQualifierDecl::EScope>(8);
constexpr auto kScopeReference = static_cast<ICIMQualifierDecl::EScope>(16);
constexpr auto kScopeMethod = static_cast<ICIMQualifierDecl::EScope>(32);
constexpr auto kScopeParameter = static_cast<ICIMQualifierDecl::EScope>(64);
constexpr auto kScopeAny = static_cast<ICIMQualifierDecl::EScope>(127);

// How a qualifier is inherited: bits.
constexpr auto kFlavorNone = static_cast<ICIMQualifierDecl::EFlavor>(0);
constexpr auto kFlavorEnableOverride = static_cast<ICIMQualifierDecl::EFlavor>(1);
constexpr auto kFlavorToSubclass = static_cast<ICIMQualifierDecl::EFlavor>(2);
constexpr auto kFlavorTranslatable = static_cast<ICIMQualifierDecl::EFlavor>(4);

// Types of values. The code of a scalar is the remote library's number of its type plus one; the arrays'
// codes stand in the same order from kTypeUnknownArray on.
using TypeCode = TCIMValue::TCIMType::ECIMType;
constexpr auto kTypeUnknown = static_cast<TypeCode>(0);
constexpr auto kTypeBoolean = static_cast<TypeCode>(1);
constexpr auto kTypeUint8 = static_cast<TypeCode>(2);
constexpr auto kTypeSint8 = static_cast<TypeCode>(3);
constexpr auto kTypeUint16 = static_cast<TypeCode>(4);
constexpr auto kTypeSint16 = static_cast<TypeCode>(5);
constexpr auto kTypeUint32 = static_cast<TypeCode>(6);
constexpr auto kTypeSint32 = static_cast<TypeCode>(7);
constexpr auto kTypeUint64 = static_cast<TypeCode>(8);
constexpr auto kTypeSint64 = static_cast<TypeCode>(9);
constexpr auto kTypeReal32 = static_cast<TypeCode>(10);
constexpr auto kTypeReal64 = static_cast<TypeCode>(11);
constexpr auto kTypeChar16 = static_cast<TypeCode>(12);
constexpr auto kTypeString = static_cast<TypeCode>(13);
constexpr auto kTypeDateTime = static_cast<TypeCode>(14);
constexpr auto kTypeReference = static_cast<TypeCode>(15);
constexpr auto kTypeUnknownArray = static_cast<TypeCode>(16);
constexpr auto kTypeBooleanArray = static_cast<TypeCode>(17);

/// What the plug-in's provider is among the host's kinds of providers.
constexpr auto kRemoteProvider = static_cast<INamespaceProvider::EType>(2);

}  // namespace NQELVSK20
