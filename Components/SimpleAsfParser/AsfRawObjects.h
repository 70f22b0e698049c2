#pragma once

#include "SimpleAsfObject.h"

// Objects that are carried through byte for byte: nothing here looks into them, so that they need no class.
using ScriptCommandObject = SimpleAsfObject;
using MarkerObject = SimpleAsfObject;
using ErrorCorrectionObject = SimpleAsfObject;
using ContentDescriptionObject = SimpleAsfObject;
using ExtendedContentDescriptionObject = SimpleAsfObject;
using ContentBrandingObject = SimpleAsfObject;
using ContentEncryptionObject = SimpleAsfObject;
using ExtendedContentEncryptionObject = SimpleAsfObject;
using DigitalSignatureObject = SimpleAsfObject;
using PaddingObject = SimpleAsfObject;
using BandwidthSharingObject = SimpleAsfObject;
using IndexParametersObject = SimpleAsfObject;
using MediaObjectIndexParametersObject = SimpleAsfObject;
using TimecodeIndexParametersObject = SimpleAsfObject;
using CompabilityObject = SimpleAsfObject;
using AdvancedContentEncryptionObject = SimpleAsfObject;
