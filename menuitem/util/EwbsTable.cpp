#include "EwbsTable.h"

// clang-format off

const std::vector<nameMap>& EWBS_PROVINCE_NAME_TABLE() {
  static const std::vector<nameMap> table = {
    {0, "AZUAY", "AZUAY"}, {1, "BOLIVAR", "BOLIVAR"}, {2, "CANAR", "CAÑAR"}, {3, "CARCHI", "CARCHI"},
    {4, "CHIMBORAZO", "CHIMBORAZO"}, {5, "COTOPAXI", "COTOPAXI"}, {6, "EL ORO", "EL ORO"},
    {7, "ESMERALDAS", "ESMERALDAS"}, {8, "GALAPAGOS", "GALAPAGOS"}, {9, "GUAYAS", "GUAYAS"},
    {10, "IMBABURA", "IMBABURA"}, {11, "PICHINCHA", "PICHINCHA"}, {12, "LOJA", "LOJA"}, {13, "LOS RIOS", "LOS RIOS"},
    {14, "MANABI", "MANABI"}, {15, "MORONA SANTIAGO", "MORONA SANTIAGO"}, {16, "NACIONAL", "NACIONAL"},
    {17, "NAPO", "NAPO"}, {18, "ORELLANA", "ORELLANA"}, {19, "PASTAZA", "PASTAZA"},
    {20, "SANTA ELENA", "SANTA ELENA"}, {21, "SANTO DOMINGO DE LOS TSACHILAS", "SANTO DOMINGO DE LOS TSACHILAS"},
    {22, "SUCUMBIOS", "SUCUMBIOS"}, {23, "TUNGURAHUA", "TUNGURAHUA"}, {24, "ZAMORA CHINCHIPE", "ZAMORA CHINCHIPE"},
    {25, "ZONA NO DELIMITADA", "ZONA NO DELIMITADA"},
  };
  return table;
}

const std::vector<nameMap>& EWBS_AREA_CODE_NAME_TABLE() {
  static const std::vector<nameMap> table = {
    // AZUAY
    {0, "CAMILO PONCE ENRIQUEZ", "CAMILO PONCE ENRIQUEZ"}, {1, "CHORDELEG", "CHORDELEG"}, {2, "CUENCA", "CUENCA"},
    {3, "EL PAN", "EL PAN"}, {4, "GIRON", "GIRON"}, {5, "GUACHAPALA", "GUACHAPALA"}, {6, "GUALACEO", "GUALACEO"},
    {7, "NABON", "NABON"}, {8, "ONA", "OÑA"}, {9, "PAUTE", "PAUTE"}, {10, "PUCARA", "PUCARA"},
    {11, "SAN FERNANDO", "SAN FERNANDO"}, {12, "SANTA ISABEL", "SANTA ISABEL"},
    {13, "SEVILLA DE ORO", "SEVILLA DE ORO"}, {14, "SIGSIG", "SIGSIG"},
    // BOLIVAR
    {15, "CALUMA", "CALUMA"}, {16, "CHILLANES", "CHILLANES"}, {17, "CHIMBO", "CHIMBO"},
    {18, "ECHEANDIA", "ECHEANDIA"}, {19, "GUARANDA", "GUARANDA"}, {20, "LAS NAVES", "LAS NAVES"},
    {21, "SAN MIGUEL", "SAN MIGUEL"},
    // CANAR
    {22, "AZOGUES", "AZOGUES"}, {23, "BIBLIAN", "BIBLIAN"}, {24, "CANAR", "CAÑAR"}, {25, "DELEG", "DELEG"},
    {26, "EL TAMBO", "EL TAMBO"}, {27, "LA TRONCAL", "LA TRONCAL"}, {28, "SUSCAL", "SUSCAL"},
    // CARCHI
    {29, "BOLIVAR", "BOLIVAR"}, {30, "ESPEJO", "ESPEJO"}, {31, "MIRA", "MIRA"}, {32, "MONTUFAR", "MONTUFAR"},
    {33, "SAN PEDRO DE HUACA", "SAN PEDRO DE HUACA"}, {34, "TULCAN", "TULCAN"},
    // CHIMBORAZO
    {35, "ALAUSI", "ALAUSI"}, {36, "CHAMBO", "CHAMBO"}, {37, "CHUNCHI", "CHUNCHI"}, {38, "COLTA", "COLTA"},
    {39, "CUMANDA", "CUMANDA"}, {40, "GUAMOTE", "GUAMOTE"}, {41, "GUANO", "GUANO"}, {42, "PALLATANGA", "PALLATANGA"},
    {43, "PENIPE", "PENIPE"}, {44, "RIOBAMBA", "RIOBAMBA"},
    // COTOPAXI
    {45, "LA MANA", "LA MANA"}, {46, "LATACUNGA", "LATACUNGA"}, {47, "PANGUA", "PANGUA"}, {48, "PUJILI", "PUJILI"},
    {49, "SALCEDO", "SALCEDO"}, {50, "SAQUISILI", "SAQUISILI"}, {51, "SIGCHOS", "SIGCHOS"},
    // EL ORO
    {52, "ARENILLAS", "ARENILLAS"}, {53, "ATAHUALPA", "ATAHUALPA"}, {54, "BALSAS", "BALSAS"},
    {55, "CHILLA", "CHILLA"}, {56, "EL GUABO", "EL GUABO"}, {57, "HUAQUILLAS", "HUAQUILLAS"},
    {58, "LAS LAJAS", "LAS LAJAS"}, {59, "MACHALA", "MACHALA"}, {60, "MARCABELI", "MARCABELI"},
    {61, "PASAJE", "PASAJE"}, {62, "PINAS", "PIÑAS"}, {63, "PORTOVELO", "PORTOVELO"},
    {64, "SANTA ROSA", "SANTA ROSA"}, {65, "ZARUMA", "ZARUMA"},
    // ESMERALDAS
    {66, "ATACAMES", "ATACAMES"}, {67, "ELOY ALFARO", "ELOY ALFARO"}, {68, "ESMERALDAS", "ESMERALDAS"},
    {69, "LA CONCORDIA", "LA CONCORDIA"}, {70, "MUISNE", "MUISNE"}, {71, "QUININDE", "QUININDE"},
    {72, "RIOVERDE", "RIOVERDE"}, {73, "SAN LORENZO", "SAN LORENZO"},
    // GALAPAGOS
    {74, "ISABELA", "ISABELA"}, {75, "SAN CRISTOBAL", "SAN CRISTOBAL"}, {76, "SANTA CRUZ", "SANTA CRUZ"},
    // GUAYAS
    {77, "ALFREDO BAQUERIZO MORENO", "ALFREDO BAQUERIZO MORENO"}, {78, "BALAO", "BALAO"}, {79, "BALZAR", "BALZAR"},
    {80, "COLIMES", "COLIMES"}, {81, "CRNEL. MARCELINO MARIDUENA", "CRNEL. MARCELINO MARIDUEÑA"},
    {82, "DAULE", "DAULE"}, {83, "DURAN", "DURAN"}, {84, "EL EMPALME", "EL EMPALME"},
    {85, "EL TRIUNFO", "EL TRIUNFO"}, {86, "GENERAL ANTONIO ELIZALDE", "GENERAL ANTONIO ELIZALDE"},
    {87, "GUAYAQUIL", "GUAYAQUIL"}, {88, "ISIDRO AYORA", "ISIDRO AYORA"},
    {89, "LOMAS DE SARGENTILLO", "LOMAS DE SARGENTILLO"}, {90, "MILAGRO", "MILAGRO"}, {91, "NARANJAL", "NARANJAL"},
    {92, "NARANJITO", "NARANJITO"}, {93, "NOBOL", "NOBOL"}, {94, "PALESTINA", "PALESTINA"},
    {95, "PEDRO CARBO", "PEDRO CARBO"}, {96, "PLAYAS", "PLAYAS"}, {97, "SALITRE", "SALITRE"},
    {98, "SAMBORONDON", "SAMBORONDON"}, {99, "SANTA LUCIA", "SANTA LUCIA"}, {100, "SIMON BOLIVAR", "SIMON BOLIVAR"},
    {101, "YAGUACHI", "YAGUACHI"},
    // IMBABURA
    {102, "ANTONIO ANTE", "ANTONIO ANTE"}, {103, "COTACACHI", "COTACACHI"}, {104, "IBARRA", "IBARRA"},
    {105, "OTAVALO", "OTAVALO"}, {106, "PIMAMPIRO", "PIMAMPIRO"},
    {107, "SAN MIGUEL DE URCUQUI", "SAN MIGUEL DE URCUQUI"},
    // PICHINCHA
    {108, "CAYAMBE", "CAYAMBE"}, {109, "MEJIA", "MEJIA"}, {110, "PEDRO MONCAYO", "PEDRO MONCAYO"},
    {111, "PEDRO VICENTE MALDONADO", "PEDRO VICENTE MALDONADO"}, {112, "PUERTO QUITO", "PUERTO QUITO"},
    {113, "QUITO", "QUITO"}, {114, "RUMINAHUI", "RUMIÑAHUI"},
    {115, "SAN MIGUEL DE LOS BANCOS", "SAN MIGUEL DE LOS BANCOS"},
    // LOJA
    {116, "CALVAS", "CALVAS"}, {117, "CATAMAYO", "CATAMAYO"}, {118, "CELICA", "CELICA"},
    {119, "CHAGUARPAMBA", "CHAGUARPAMBA"}, {120, "ESPINDOLA", "ESPINDOLA"}, {121, "GONZANAMA", "GONZANAMA"},
    {122, "LOJA", "LOJA"}, {123, "MACARA", "MACARA"}, {124, "OLMEDO", "OLMEDO"}, {125, "PALTAS", "PALTAS"},
    {126, "PINDAL", "PINDAL"}, {127, "PUYANGO", "PUYANGO"}, {128, "QUILANGA", "QUILANGA"},
    {129, "SARAGURO", "SARAGURO"}, {130, "SOZORANGA", "SOZORANGA"}, {131, "ZAPOTILLO", "ZAPOTILLO"},
    // LOS RIOS
    {132, "BABA", "BABA"}, {133, "BABAHOYO", "BABAHOYO"}, {134, "BUENA FE", "BUENA FE"}, {135, "MOCACHE", "MOCACHE"},
    {136, "MONTALVO", "MONTALVO"}, {137, "PALENQUE", "PALENQUE"}, {138, "PUEBLOVIEJO", "PUEBLOVIEJO"},
    {139, "QUEVEDO", "QUEVEDO"}, {140, "QUINSALOMA", "QUINSALOMA"}, {141, "URDANETA", "URDANETA"},
    {142, "VALENCIA", "VALENCIA"}, {143, "VENTANAS", "VENTANAS"}, {144, "VINCES", "VINCES"},
    // MANABI
    {145, "24 DE MAYO", "24 DE MAYO"}, {146, "CHONE", "CHONE"}, {147, "EL CARMEN", "EL CARMEN"},
    {148, "FLAVIO ALFARO", "FLAVIO ALFARO"}, {149, "JAMA", "JAMA"}, {150, "JARAMIJO", "JARAMIJO"},
    {151, "JIPIJAPA", "JIPIJAPA"}, {152, "JUNIN", "JUNIN"}, {153, "MANTA", "MANTA"},
    {154, "MONTECRISTI", "MONTECRISTI"}, {155, "PAJAN", "PAJAN"}, {156, "PEDERNALES", "PEDERNALES"},
    {157, "PICHINCHA", "PICHINCHA"}, {158, "PORTOVIEJO", "PORTOVIEJO"}, {159, "PUERTO LOPEZ", "PUERTO LOPEZ"},
    {160, "ROCAFUERTE", "ROCAFUERTE"}, {161, "SAN VICENTE", "SAN VICENTE"}, {162, "SANTA ANA", "SANTA ANA"},
    {163, "SUCRE", "SUCRE"}, {164, "TOSAGUA", "TOSAGUA"},
    // MORONA SANTIAGO
    {165, "GUALAQUIZA", "GUALAQUIZA"}, {166, "HUAMBOYA", "HUAMBOYA"}, {167, "LIMON INDANZA", "LIMON INDANZA"},
    {168, "LOGRONO", "LOGROÑO"}, {169, "MORONA", "MORONA"}, {170, "PABLO SEXTO", "PABLO SEXTO"},
    {171, "PALORA", "PALORA"}, {172, "SAN JUAN BOSCO", "SAN JUAN BOSCO"}, {173, "SANTIAGO", "SANTIAGO"},
    {174, "SUCUA", "SUCUA"}, {175, "TAISHA", "TAISHA"}, {176, "TIWINTZA", "TIWINTZA"},
    // NACIONAL
    {177, "NACIONAL", "NACIONAL"},
    // NAPO
    {178, "ARCHIDONA", "ARCHIDONA"}, {179, "CARLOS JULIO AROSEMENA TOLA", "CARLOS JULIO AROSEMENA TOLA"},
    {180, "EL CHACO", "EL CHACO"}, {181, "QUIJOS", "QUIJOS"}, {182, "TENA", "TENA"},
    // ORELLANA
    {183, "AGUARICO", "AGUARICO"}, {184, "LA JOYA DE LOS SACHAS", "LA JOYA DE LOS SACHAS"}, {185, "LORETO", "LORETO"},
    {186, "ORELLANA", "ORELLANA"},
    // PASTAZA
    {187, "ARAJUNO", "ARAJUNO"}, {188, "MERA", "MERA"}, {189, "PASTAZA", "PASTAZA"},
    {190, "SANTA CLARA", "SANTA CLARA"},
    // SANTA ELENA
    {191, "LA LIBERTAD", "LA LIBERTAD"}, {192, "SALINAS", "SALINAS"}, {193, "SANTA ELENA", "SANTA ELENA"},
    // SANTO DOMINGO DE LOS TSACHILAS
    {194, "SANTO DOMINGO", "SANTO DOMINGO"},
    // SUCUMBIOS
    {195, "CASCALES", "CASCALES"}, {196, "CUYABENO", "CUYABENO"}, {197, "GONZALO PIZARRO", "GONZALO PIZARRO"},
    {198, "LAGO AGRIO", "LAGO AGRIO"}, {199, "PUTUMAYO", "PUTUMAYO"}, {200, "SHUSHUFINDI", "SHUSHUFINDI"},
    {201, "SUCUMBIOS", "SUCUMBIOS"},
    // TUNGURAHUA
    {202, "AMBATO", "AMBATO"}, {203, "BANOS DE AGUA SANTA", "BAÑOS DE AGUA SANTA"}, {204, "CEVALLOS", "CEVALLOS"},
    {205, "MOCHA", "MOCHA"}, {206, "PATATE", "PATATE"}, {207, "QUERO", "QUERO"},
    {208, "SAN PEDRO DE PELILEO", "SAN PEDRO DE PELILEO"}, {209, "SANTIAGO DE PILLARO", "SANTIAGO DE PILLARO"},
    {210, "TISALEO", "TISALEO"},
    // ZAMORA CHINCHIPE
    {211, "CENTINELA DEL CONDOR", "CENTINELA DEL CONDOR"}, {212, "CHINCHIPE", "CHINCHIPE"},
    {213, "EL PANGUI", "EL PANGUI"}, {214, "NANGARITZA", "NANGARITZA"}, {215, "PALANDA", "PALANDA"},
    {216, "PAQUISHA", "PAQUISHA"}, {217, "YACUAMBI", "YACUAMBI"}, {218, "YANTZAZA", "YANTZAZA"},
    {219, "ZAMORA", "ZAMORA"},
    // ZONA NO DELIMITADA
    {220, "EL PIEDRERO", "EL PIEDRERO"}, {221, "LAS GOLONDRINAS", "LAS GOLONDRINAS"},
    {222, "MANGA DEL CURA", "MANGA DEL CURA"},
  };
  return table;
}

const std::vector<nameMap>& EWBS_PHI_PROVINCE_NAME_TABLE() {
  static const std::vector<nameMap> table = {
    {0, "NCR", "NCR"}, {1, "CAR", "CAR"}, {2, "REGION 1", "REGION 1"}, {3, "REGION 2", "REGION 2"},
    {4, "REGION 3", "REGION 3"}, {5, "REGION 4-A", "REGION 4-A"}, {6, "REGION 4-B", "REGION 4-B"},
    {7, "REGION 5", "REGION 5"}, {8, "REGION 6", "REGION 6"}, {9, "REGION 7", "REGION 7"},
    {10, "REGION 8", "REGION 8"}, {11, "REGION 9", "REGION 9"}, {12, "REGION 10", "REGION 10"},
    {13, "REGION 11", "REGION 11"}, {14, "REGION 12", "REGION 12"}, {15, "REGION 13", "REGION 13"},
    {16, "ARMM (Autonomous Region in Muslim)", "ARMM (Autonomous Region in Muslim)"},
  };
  return table;
}

const std::vector<nameMap>& EWBS_PHI_AREA_CODE_NAME_TABLE() {
  static const std::vector<nameMap> table = {
    // NCR
    {0, "Caloocan", "Caloocan"}, {1, "Las Pinas", "Las PiÑas"}, {2, "Makati", "Makati"}, {3, "Malabon", "Malabon"},
    {4, "Mandaluyong", "Mandaluyong"}, {5, "Manila", "Manila"}, {6, "Marikina", "Marikina"},
    {7, "Muntinlupa", "Muntinlupa"}, {8, "Navotas", "Navotas"}, {9, "Paranaque", "ParaÑaque"}, {10, "Pasay", "Pasay"},
    {11, "Pasig", "Pasig"}, {12, "Pateros", "Pateros"}, {13, "Quezon City", "Quezon City"},
    {14, "San Juan", "San Juan"}, {15, "Taguig", "Taguig"}, {16, "Valenzuela", "Valenzuela"},
    // CAR
    {17, "Abra", "Abra"}, {18, "Apayao", "Apayao"}, {19, "Baguio", "Baguio"}, {20, "Benguet", "Benguet"},
    {21, "Ifugao", "Ifugao"}, {22, "Kalinga", "Kalinga"}, {23, "Mountain Province", "Mountain Province"},
    // REGION 1
    {24, "Ilocos Norte", "Ilocos Norte"}, {25, "Ilocos Sur", "Ilocos Sur"}, {26, "La Union", "La Union"},
    {27, "Pangasinan", "Pangasinan"},
    // REGION 2
    {28, "Batanes", "Batanes"}, {29, "Cagayan", "Cagayan"}, {30, "Isabela", "Isabela"},
    {31, "Nueva Vizcaya", "Nueva Vizcaya"}, {32, "Quirino", "Quirino"}, {33, "Santiago", "Santiago"},
    // REGION 3
    {34, "Angeles", "Angeles"}, {35, "Aurora", "Aurora"}, {36, "Bataan", "Bataan"}, {37, "Bulacan", "Bulacan"},
    {38, "Nueva Ecija", "Nueva Ecija"}, {39, "Olongapo", "Olongapo"}, {40, "Pampanga", "Pampanga"},
    {41, "Tarlac", "Tarlac"}, {42, "Zambales", "Zambales"},
    // REGION 4-A
    {43, "Batangas", "Batangas"}, {44, "Cavite", "Cavite"}, {45, "Laguna", "Laguna"}, {46, "Lucena", "Lucena"},
    {47, "Quezon", "Quezon"}, {48, "Rizal", "Rizal"},
    // REGION 4-B
    {49, "Marinduque", "Marinduque"}, {50, "Occidental Mindoro", "Occidental Mindoro"},
    {51, "Oriental Mindoro", "Oriental Mindoro"}, {52, "Palawan", "Palawan"},
    {53, "Puerto Princesa", "Puerto Princesa"}, {54, "Romblon", "Romblon"},
    // REGION 5
    {55, "Albay", "Albay"}, {56, "Camarines Norte", "Camarines Norte"}, {57, "Camarines Sur", "Camarines Sur"},
    {58, "Catanduanes", "Catanduanes"}, {59, "Masbate", "Masbate"}, {60, "Naga", "Naga"},
    {61, "Sorsogon", "Sorsogon"},
    // REGION 6
    {62, "Aklan", "Aklan"}, {63, "Antique", "Antique"}, {64, "Bacolod", "Bacolod"}, {65, "Capiz", "Capiz"},
    {66, "Guimaras", "Guimaras"}, {67, "Iloilo", "Iloilo"}, {68, "Iloilo City", "Iloilo City"},
    {69, "Negros Occidental", "Negros Occidental"},
    // REGION 7
    {70, "Bohol", "Bohol"}, {71, "Cebu", "Cebu"}, {72, "Cebu City", "Cebu City"}, {73, "Mandaue", "Mandaue"},
    {74, "Negros Oriental", "Negros Oriental"}, {75, "Siquijor", "Siquijor"},
    // REGION 8
    {76, "Biliran", "Biliran"}, {77, "Eastern Samar", "Eastern Samar"}, {78, "Leyte", "Leyte"},
    {79, "Northern Samar", "Northern Samar"}, {80, "Ormoc", "Ormoc"}, {81, "Samar", "Samar"},
    {82, "Southern Leyte", "Southern Leyte"}, {83, "Tacloban", "Tacloban"},
    // REGION 9
    {84, "Isabela City", "Isabela City"}, {85, "Zamboanga City", "Zamboanga City"},
    {86, "Zamboanga del Norte", "Zamboanga del Norte"}, {87, "Zamboanga del Sur", "Zamboanga del Sur"},
    {88, "Zamboanga Sibugay", "Zamboanga Sibugay"},
    // REGION 10
    {89, "Bukidnon", "Bukidnon"}, {90, "Cagayan de Oro", "Cagayan de Oro"}, {91, "Camiguin", "Camiguin"},
    {92, "Iligan", "Iligan"}, {93, "Lanao del Norte", "Lanao del Norte"},
    {94, "Misamis Occidental", "Misamis Occidental"}, {95, "Misamis Oriental", "Misamis Oriental"},
    // REGION 11
    {96, "Compostela Valley", "Compostela Valley"}, {97, "Davao City", "Davao City"},
    {98, "Davao del Norte", "Davao del Norte"}, {99, "Davao del Sur", "Davao del Sur"},
    {100, "Davao Oriental", "Davao Oriental"},
    // REGION 12
    {101, "Cotabato", "Cotabato"}, {102, "Cotabato City", "Cotabato City"}, {103, "General Santos", "General Santos"},
    {104, "Sarangani", "Sarangani"}, {105, "South Cotabato", "South Cotabato"},
    {106, "Sultan Kudarat", "Sultan Kudarat"},
    // REGION 13
    {107, "Agusan del Norte", "Agusan del Norte"}, {108, "Agusan del Sur", "Agusan del Sur"},
    {109, "Butuan", "Butuan"}, {110, "Dinagat Islands", "Dinagat Islands"},
    {111, "Surigao del Norte", "Surigao del Norte"}, {112, "Surigao del Sur", "Surigao del Sur"},
    // ARMM (Autonomous Region in Muslim)
    {113, "Basilan", "Basilan"}, {114, "Lanao del Sur", "Lanao del Sur"}, {115, "Maguindanao", "Maguindanao"},
    {116, "Sulu", "Sulu"}, {117, "Tawi-Tawi", "Tawi-Tawi"},
  };
  return table;
}

const std::vector<std::vector<AreaRange>>& EWBS_PROVINCE_AREAS() {
  static const std::vector<std::vector<AreaRange>> table = {
    {{0, 14}},  // 0 AZUAY
    {{15, 21}},  // 1 BOLIVAR
    {{22, 28}},  // 2 CANAR
    {{29, 34}},  // 3 CARCHI
    {{35, 44}},  // 4 CHIMBORAZO
    {{45, 51}},  // 5 COTOPAXI
    {{52, 52}, {54, 65}},  // 6 EL ORO
    {{66, 73}},  // 7 ESMERALDAS
    {{74, 76}},  // 8 GALAPAGOS
    {{77, 101}},  // 9 GUAYAS
    {{102, 107}},  // 10 IMBABURA
    {{108, 115}},  // 11 PICHINCHA
    {{116, 131}},  // 12 LOJA
    {{132, 144}},  // 13 LOS RIOS
    {{145, 145}, {29, 29}, {146, 154}, {124, 124}, {155, 164}},  // 14 MANABI
    {{165, 176}},  // 15 MORONA SANTIAGO
    {{177, 177}},  // 16 NACIONAL
    {{178, 182}},  // 17 NAPO
    {{183, 186}},  // 18 ORELLANA
    {{187, 190}},  // 19 PASTAZA
    {{191, 193}},  // 20 SANTA ELENA
    {{194, 194}},  // 21 SANTO DOMINGO DE LOS TSACHILAS
    {{195, 201}},  // 22 SUCUMBIOS
    {{202, 210}},  // 23 TUNGURAHUA
    {{211, 219}},  // 24 ZAMORA CHINCHIPE
    {{220, 222}},  // 25 ZONA NO DELIMITADA
  };
  return table;
}

const std::vector<std::vector<AreaRange>>& EWBS_PHI_PROVINCE_AREAS() {
  static const std::vector<std::vector<AreaRange>> table = {
    {{0, 16}},  // 0 NCR
    {{17, 23}},  // 1 CAR
    {{24, 27}},  // 2 REGION 1
    {{28, 33}},  // 3 REGION 2
    {{34, 42}},  // 4 REGION 3
    {{43, 48}},  // 5 REGION 4-A
    {{49, 54}},  // 6 REGION 4-B
    {{55, 61}},  // 7 REGION 5
    {{62, 69}},  // 8 REGION 6
    {{70, 75}},  // 9 REGION 7
    {{76, 83}},  // 10 REGION 8
    {{84, 88}},  // 11 REGION 9
    {{89, 95}},  // 12 REGION 10
    {{96, 100}},  // 13 REGION 11
    {{101, 106}},  // 14 REGION 12
    {{107, 112}},  // 15 REGION 13
    {{113, 117}},  // 16 ARMM (Autonomous Region in Muslim)
  };
  return table;
}
