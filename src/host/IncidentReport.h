#pragma once

#include <memory>
#include <string>

#include "devices/DriveChoice.h"
#include "plugins/plugin.cliframework/ParsedCommand.h"
#include "plugins/plugin.cliframework/ResultBase.h"

namespace orlo::host {

// orlo report [-ssd X] -destination IR.zip [-force]: an incident report of the drive
// that -ssd names, or of every drive found, written as a new zip archive through the
// installed provider. Inside it:
//   system.txt                 orlo's version, the kernel, the distribution, the time (UTC)
//   drives.txt, drives.json    the drives of the report, as `orlo show -ssd` lists them
//   orlo.log                   orlo's log of this run
//   drives/<index>-<serial>/   one folder a drive (the serial with any character but
//                              letters, digits, ".", "-" and "_" as "_"), holding
//     image/                   the device image that `orlo capture` records
//     identify.txt|json        ATA: IDENTIFY DEVICE, as `orlo show -ssd X` shows it
//     identify-controller.txt|json, identify-namespace-<NSID>.txt|json
//                              NVMe: Identify Controller and each active namespace's
//                              Identify Namespace, as `orlo show -ssd X
//                              ControllerNamespaceStructure=CNS NamespaceId=NSID` shows them
//     health.txt|json          the health summary, as `orlo health -ssd X` shows it
//     failure.txt              instead of all these, why the drive could not be opened
// The files are staged in a private folder below the temporary folder, which is removed
// however the command ends, a SIGINT, SIGTERM or SIGHUP included. `destinationOption` and
// `forceOption` are the options' names.
std::shared_ptr<plugin::cli::ResultBase> writeIncidentReport(
    const plugin::cli::ParsedCommand& command, const orlo::devices::DriveOptions& options,
    const std::string& destinationOption, const std::string& forceOption);

}  // namespace orlo::host
