#include <gtest/gtest.h>

#include "tool/golden.h"

// Whole sessions with the program, compared with what they are known to print.

using Zelk::Testing::ExpectGolden;

TEST(Transcript, ListNamesEveryKindOnePerLine) {
  ExpectGolden("list", {
                           "list component --source inventory.json",
                           "list package --source inventory.json",
                           "list service --source inventory.json",
                           "list operation com.acme.inventory.machines --source inventory.json",
                           "list operation com.acme.inventory.folders --source inventory.json",
                           "list structure --source inventory.json",
                           "list enumeration --source inventory.json",
                           "list resource --source inventory.json",
                           "list model com.acme.inventory.machine --source inventory.json",
                           "list hidden --source inventory.json",
                           "list source --source inventory.json --source net=network.json",
                           "list component --source inventory.json --source network.json",
                           "list component",
                       });
}

TEST(Transcript, ListInJsonHasTheDomainAndKindOfEachName) {
  ExpectGolden("list_json", {
                                "list components --source inventory.json --json",
                                "--json list hiddens --source inventory.json",
                            });
}

TEST(Transcript, GetShowsEveryKindAsAPage) {
  ExpectGolden("get", {
                          "get component com.acme --source inventory.json",
                          "get package com.acme.inventory --source inventory.json",
                          "get package com.acme.empty --source inventory.json",
                          "get service com.acme.inventory.machines --source inventory.json",
                          "get operation com.acme.inventory.machines list --source inventory.json",
                          "get operation com.acme.inventory.machines get --source inventory.json",
                          "get operation com.acme.inventory.machines remove "
                          "--source inventory.json",
                          "get structure com.acme.inventory.machine --source inventory.json",
                          "get structure com.acme.inventory.busy --source inventory.json",
                          "get enumeration com.acme.inventory.machine.power "
                          "--source inventory.json",
                          "get source inventory --source inventory.json",
                      });
}

TEST(Transcript, GetInJsonHasTheRecordWhole) {
  ExpectGolden("get_json", {
                               "get component com.acme --source inventory.json --json",
                               "get package com.acme.empty --source inventory.json --json",
                               "get service com.acme.inventory.folders --source inventory.json "
                               "--json",
                               "get operation com.acme.inventory.machines get "
                               "--source inventory.json --json",
                               "get structure com.acme.inventory.machine --source inventory.json "
                               "--json",
                               "get enumeration com.acme.inventory.machine.power "
                               "--source inventory.json --json",
                               "get source inventory --source inventory.json --json",
                           });
}

TEST(Transcript, FingerprintIsOfAllSourcesOfOneOrOfAComponent) {
  ExpectGolden("fingerprint",
               {
                   "fingerprint",
                   "fingerprint --source inventory.json --source network.json",
                   "fingerprint source --source inventory.json --source network.json",
                   "fingerprint source network --source inventory.json --source network.json",
                   "fingerprint component com.acme.network --source network.json",
                   "fingerprint --source network.json --json",
                   "fingerprint sources network --source network.json --json",
                   "fingerprint component com.acme.network --source network.json --json",
               });
}

TEST(Transcript, CheckShowsEveryMessageOfEveryFile) {
  const std::string files =
      "inventory.json several_messages.json syntax_error.json truncated.json other_root.json "
      "missing.json";
  ExpectGolden("check", {
                            "check inventory.json network.json",
                            "check " + files,
                            "check --json " + files,
                        });
}

TEST(Transcript, FailedSourceDoesNotStopTheOthers) {
  ExpectGolden("failed_sources", {
                                     "list components --source several_messages.json "
                                     "--source inventory.json --source truncated.json",
                                     "list components --source missing.json",
                                     "get component com.acme --source missing.json",
                                     "list sources --source a=inventory.json "
                                     "--source a=network.json",
                                 });
}

TEST(Transcript, UnknownIdShowsTheMessageOfTheService) {
  ExpectGolden("unknown_ids", {
                                  "get component nope --source inventory.json",
                                  "get package nope --source inventory.json",
                                  "get service nope --source inventory.json",
                                  "get operation nope get --source inventory.json",
                                  "get operation com.acme.inventory.machines nope "
                                  "--source inventory.json",
                                  "get structure nope --source inventory.json",
                                  "get enumeration nope --source inventory.json",
                                  "get source nope --source inventory.json --json",
                                  "list operation nope --source inventory.json",
                                  "list model nope --source inventory.json",
                                  "fingerprint component nope --source inventory.json",
                                  "fingerprint source nope --source inventory.json",
                              });
}

TEST(Transcript, WrongUsageIsOneLine) {
  ExpectGolden("usage", {
                            "",
                            "frobnicate",
                            "lsit",
                            "--frobnicate",
                            "list",
                            "list --frobnicate components",
                            "list gadgets",
                            "list gadget:components",
                            "list component extra",
                            "list operations",
                            "list components --source",
                            "get component",
                            "get operation com.acme.inventory.machines",
                            "get resource com.acme.inventory.machine",
                            "get model com.acme.inventory.machine",
                            "get hidden x",
                            "fingerprint package com.acme.inventory",
                            "fingerprint component",
                            "fingerprint source a b",
                            "check",
                            "check inventory.json --source network.json",
                        });
}

TEST(Transcript, AuthenticationShowsTheSchemesOfEveryLevel) {
  ExpectGolden("schemes", {
                              "list component --source schemes.json",
                              "list package --source schemes.json",
                              "list service --source schemes.json",
                              "list operation com.acme.inventory.machines --source schemes.json",
                              "get component com.acme --source schemes.json",
                              "get package com.acme.inventory --source schemes.json",
                              "get service com.acme.inventory.machines --source schemes.json",
                              "get operation com.acme.inventory.machines list "
                              "--source schemes.json",
                              "fingerprint component com.acme --source schemes.json",
                              "get operation com.acme.inventory.machines get "
                              "--source schemes.json",
                          });
}

TEST(Transcript, AuthenticationInJsonHasTheRecordWhole) {
  ExpectGolden("schemes_json", {
                                   "get component com.acme --source schemes.json --json",
                                   "get package com.acme.visitors --source schemes.json --json",
                                   "get service com.acme.inventory.folders --source schemes.json "
                                   "--json",
                                   "get operation com.acme.inventory.machines list "
                                   "--source schemes.json --json",
                               });
}

TEST(Transcript, CliShowsNamespacesAndCommands) {
  ExpectGolden("commands", {
                               "list namespace --source commands.json",
                               "list command --source commands.json",
                               "list command acme.machines --source commands.json",
                               "list command . --source commands.json",
                               "get namespace acme --source commands.json",
                               "get namespace acme.machines --source commands.json",
                               "get command acme.machines.list --source commands.json",
                               "get command acme.machines list --source commands.json",
                               "get command ping --source commands.json",
                               "get command acme.machines.pong --source commands.json",
                               "get namespace acme.pong --source commands.json",
                               "fingerprint namespace --source commands.json",
                               "fingerprint command --source commands.json",
                           });
}

TEST(Transcript, CliInJsonHasTheRecordWhole) {
  ExpectGolden("commands_json", {
                                    "get namespace acme --source commands.json --json",
                                    "get command acme.machines.list --source commands.json --json",
                                    "get command ping --source commands.json --json",
                                });
}
