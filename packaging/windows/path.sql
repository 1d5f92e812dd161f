CREATE TABLE `Environment` (`Environment` CHAR(72) NOT NULL, `Name` CHAR(255) NOT NULL LOCALIZABLE, `Value` CHAR(255) LOCALIZABLE, `Component_` CHAR(72) NOT NULL PRIMARY KEY `Environment`)
INSERT INTO `Environment` (`Environment`, `Name`, `Value`, `Component_`) VALUES ('Path', '=-*Path', '[~];[INSTALLDIR]', 'Menu')
INSERT INTO `InstallExecuteSequence` (`Action`, `Sequence`) VALUES ('RemoveEnvironmentStrings', 3300)
INSERT INTO `InstallExecuteSequence` (`Action`, `Sequence`) VALUES ('WriteEnvironmentStrings', 5200)
