#pragma once

#include <string>

// Names of the drive families whose vendor data the decoders know. The decoders
// test a drive's Product attribute against them, some by substring and some by
// the whole text, so the family of four is a prefix of its DP edition.
namespace orlo::core::products {

const std::string ProductFamilyOneEE = "Tamsel T1 EE";
const std::string ProductFamilyOneVE = "Tamsel T1 VE";
const std::string ProductFamilyOneRefresh = "Tamsel T1 Refresh";
const std::string ProductFamilyOneRR = "Tamsel T1 RR";
const std::string ProductFamilyTwo = "Tamsel T2";
const std::string ProductFamilyThree = "Tamsel T3";
const std::string ProductFamilyFour = "Tamsel T4";
const std::string ProductFamilyFourDP = "Tamsel T4 DP";

}  // namespace orlo::core::products
