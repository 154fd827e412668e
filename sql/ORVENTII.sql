DROP TABLE Comments CASCADE CONSTRAINTS;
DROP TABLE RelationShips CASCADE CONSTRAINTS;
DROP TABLE FunctionSubNodes CASCADE CONSTRAINTS;
DROP TABLE ActivitySubNodes CASCADE CONSTRAINTS;
DROP TABLE ActivityFunctions CASCADE CONSTRAINTS;
DROP TABLE Activities CASCADE CONSTRAINTS;
DROP TABLE RecordSetOutPuts CASCADE CONSTRAINTS;
DROP TABLE RecordSets CASCADE CONSTRAINTS;
DROP TABLE Lines CASCADE CONSTRAINTS;
DROP TABLE ScenarioNodes CASCADE CONSTRAINTS;
DROP TABLE Scenarios CASCADE CONSTRAINTS;
DROP TABLE ActivityTypesFunctions CASCADE CONSTRAINTS;
DROP TABLE ActivityTypesParams CASCADE CONSTRAINTS;
DROP TABLE ActivityTypes CASCADE CONSTRAINTS;
DROP TABLE FunctionTypesParams CASCADE CONSTRAINTS;
DROP TABLE FunctionTypes CASCADE CONSTRAINTS;
DROP TABLE DataTypes CASCADE CONSTRAINTS;
DROP SEQUENCE Scenario_ID_seq;
DROP SEQUENCE Node_ID_seq;
DROP SEQUENCE SubNode_ID_seq;
DROP SEQUENCE Function_ID_seq;

CREATE SEQUENCE Scenario_ID_seq;
CREATE SEQUENCE Node_ID_seq;
CREATE SEQUENCE SubNode_ID_seq;
CREATE SEQUENCE Function_ID_seq;

CREATE TABLE DataTypes (
  Datatype_name VARCHAR2(1000),
  CONSTRAINT PK_DataTypes PRIMARY KEY (Datatype_name)
);

CREATE TABLE FunctionTypes (
  FunctionType_name VARCHAR2(1000),
  FunctionType_descr CLOB,
  CONSTRAINT PK_FunctionTypes PRIMARY KEY (FunctionType_name)
);

CREATE TABLE FunctionTypesParams (
  FunctionType_name VARCHAR2(1000),
  param_kind VARCHAR2(10),
  Param_name VARCHAR2(4000),
  Param_type VARCHAR2(1000),
  CONSTRAINT FK_FunTypeParams_FunTypes FOREIGN KEY (FunctionType_name) REFERENCES FunctionTypes (FunctionType_name),
  CONSTRAINT FK_FunTypeParams_DataTypes FOREIGN KEY (Param_type) REFERENCES DataTypes (Datatype_name)
);

CREATE TABLE ActivityTypes (
  ActivityType_name VARCHAR2(1000),
  ActivityType_descr CLOB,
  ActivityType_SQL CLOB,
  ActivityType_SchemaNo NUMBER(5),
  ActivityType_ProviderSem NUMBER(5),
  ActivityType_ConsumerSem NUMBER(5),
  ActivityType_LDL CLOB,
  CONSTRAINT PK_ActivityTypes PRIMARY KEY (ActivityType_name)
);

CREATE TABLE ActivityTypesParams (
  ActivityType_name VARCHAR2(1000),
  param_kind VARCHAR2(10),
  Param_name VARCHAR2(4000),
  Param_type VARCHAR2(1000),
  CONSTRAINT FK_ActTypeParams_ActTypes FOREIGN KEY (ActivityType_name) REFERENCES ActivityTypes (ActivityType_name),
  CONSTRAINT FK_ActTypeParams_DataTypes FOREIGN KEY (Param_type) REFERENCES DataTypes (Datatype_name)
);

CREATE TABLE ActivityTypesFunctions (
  ActivityType_name VARCHAR2(1000),
  Function_name VARCHAR2(4000),
  Function_type VARCHAR2(1000),
  CONSTRAINT FK_ActTypeFunctions_ActTypes FOREIGN KEY (ActivityType_name) REFERENCES ActivityTypes (ActivityType_name),
  CONSTRAINT FK_ActTypeFunctions_FunTypes FOREIGN KEY (Function_type) REFERENCES FunctionTypes (FunctionType_name)
);

CREATE TABLE Scenarios (
  Scenario_Name VARCHAR2(4000),
  Scenario_ID NUMBER(5),
  User_Name VARCHAR2(4000),
  CONSTRAINT PK_Scenarios PRIMARY KEY (Scenario_ID),
  CONSTRAINT UQ_Scenarios_Name UNIQUE (Scenario_Name)
);

CREATE TABLE ScenarioNodes (
  Scenario_ID NUMBER(5),
  Node_ID NUMBER(5),
  Node_Name VARCHAR2(4000),
  Node_Type NUMBER(5),
  Left BINARY_FLOAT,
  Top BINARY_FLOAT,
  Width BINARY_FLOAT,
  Height BINARY_FLOAT,
  CONSTRAINT PK_ScenarioNodes PRIMARY KEY (Node_ID),
  CONSTRAINT FK_ScenarioNodes_Scenarios FOREIGN KEY (Scenario_ID) REFERENCES Scenarios (Scenario_ID)
);

CREATE TABLE Lines (
  Scenario_ID NUMBER(5),
  From_Label VARCHAR2(4000),
  From_Grab_Point NUMBER(5),
  To_Label VARCHAR2(4000),
  To_Grab_Point NUMBER(5),
  Edge_Type NUMBER(5),
  Angle NUMBER(5),
  CONSTRAINT FK_Lines_Scenarios FOREIGN KEY (Scenario_ID) REFERENCES Scenarios (Scenario_ID)
);

CREATE TABLE RecordSets (
  RecordSet_ID NUMBER(5),
  RecordSet_SQL CLOB,
  CONSTRAINT PK_RecordSets PRIMARY KEY (RecordSet_ID),
  CONSTRAINT FK_RecordSets_Nodes FOREIGN KEY (RecordSet_ID) REFERENCES ScenarioNodes (Node_ID)
);

CREATE TABLE RecordSetOutPuts (
  RecordSet_ID NUMBER(5),
  Output_ID NUMBER(5),
  Output_Key VARCHAR2(4000),
  DB_Key VARCHAR2(4000),
  Output_Type VARCHAR2(1000),
  CONSTRAINT PK_RSOutPuts PRIMARY KEY (Output_ID),
  CONSTRAINT FK_RSOutPuts_RecordSets FOREIGN KEY (RecordSet_ID) REFERENCES RecordSets (RecordSet_ID),
  CONSTRAINT FK_RSOutPuts_DataTypes FOREIGN KEY (Output_Type) REFERENCES DataTypes (Datatype_name)
);

CREATE TABLE Activities (
  Activity_ID NUMBER(5),
  Activity_Descr CLOB,
  Activity_Type VARCHAR2(1000),
  Activity_Log CLOB,
  Activity_SQL CLOB,
  Activity_SchemaNo NUMBER(5),
  Activity_LDL CLOB,
  CONSTRAINT PK_Activities PRIMARY KEY (Activity_ID),
  CONSTRAINT FK_Activities_Nodes FOREIGN KEY (Activity_ID) REFERENCES ScenarioNodes (Node_ID),
  CONSTRAINT FK_Activities_ActTypes FOREIGN KEY (Activity_Type) REFERENCES ActivityTypes (ActivityType_name)
);

CREATE TABLE ActivityFunctions (
  Activity_ID NUMBER(5),
  Function_ID NUMBER(5),
  Function_Key VARCHAR2(4000),
  Function_Type VARCHAR2(1000),
  Function_Source NUMBER(5),
  CONSTRAINT PK_ActFunctions PRIMARY KEY (Function_ID),
  CONSTRAINT FK_ActFunctions_Activities FOREIGN KEY (Activity_ID) REFERENCES Activities (Activity_ID),
  CONSTRAINT FK_ActFunctions_FunTypes FOREIGN KEY (Function_Type) REFERENCES FunctionTypes (FunctionType_name)
);

CREATE TABLE ActivitySubNodes (
  Activity_ID NUMBER(5),
  SubNode_ID NUMBER(5),
  SubNode_Key VARCHAR2(4000),
  SubNode_Kind NUMBER(5),
  SubNode_Name VARCHAR2(4000),
  SubNode_Type VARCHAR2(1000),
  SubNode_Tag NUMBER(5),
  CONSTRAINT PK_ActSubNodes PRIMARY KEY (SubNode_ID),
  CONSTRAINT FK_ActSubNodes_Activities FOREIGN KEY (Activity_ID) REFERENCES Activities (Activity_ID),
  CONSTRAINT FK_ActSubNodes_DataTypes FOREIGN KEY (SubNode_Type) REFERENCES DataTypes (Datatype_name)
);

CREATE TABLE FunctionSubNodes (
  Function_ID NUMBER(5),
  SubNode_ID NUMBER(5),
  SubNode_Key VARCHAR2(4000),
  SubNode_Kind NUMBER(5),
  SubNode_Name VARCHAR2(4000),
  SubNode_Type VARCHAR2(1000),
  CONSTRAINT PK_FunSubNodes PRIMARY KEY (SubNode_ID),
  CONSTRAINT FK_FunSubNodes_ActFunctions FOREIGN KEY (Function_ID) REFERENCES ActivityFunctions (Function_ID),
  CONSTRAINT FK_FunSubNodes_DataTypes FOREIGN KEY (SubNode_Type) REFERENCES DataTypes (Datatype_name)
);

CREATE TABLE RelationShips (
  Node_ID NUMBER(5),
  SubNode_ID NUMBER(5),
  Relationship_Kind NUMBER(5),
  From_Key VARCHAR2(4000),
  From_Name VARCHAR2(4000),
  From_Type NUMBER(5),
  CONSTRAINT FK_RelationShips_Nodes FOREIGN KEY (Node_ID) REFERENCES ScenarioNodes (Node_ID)
);

CREATE TABLE Comments (
  Comment_ID NUMBER(5),
  Comment_Text CLOB,
  CONSTRAINT PK_Comments PRIMARY KEY (Comment_ID),
  CONSTRAINT FK_Comments_Nodes FOREIGN KEY (Comment_ID) REFERENCES ScenarioNodes (Node_ID)
);

CREATE INDEX IX_ScenarioNodes_Scenario ON ScenarioNodes (Scenario_ID);
CREATE INDEX IX_Lines_Scenario ON Lines (Scenario_ID);
CREATE INDEX IX_RSOutPuts_RecordSet ON RecordSetOutPuts (RecordSet_ID);
CREATE INDEX IX_ActFunctions_Activity ON ActivityFunctions (Activity_ID);
CREATE INDEX IX_ActSubNodes_Activity ON ActivitySubNodes (Activity_ID);
CREATE INDEX IX_FunSubNodes_Function ON FunctionSubNodes (Function_ID);
CREATE INDEX IX_RelationShips_Node ON RelationShips (Node_ID);
CREATE INDEX IX_RelationShips_SubNode ON RelationShips (SubNode_ID);

INSERT INTO DataTypes VALUES ('VARCHAR2');
INSERT INTO DataTypes VALUES ('NVARCHAR2');
INSERT INTO DataTypes VALUES ('CHAR');
INSERT INTO DataTypes VALUES ('NCHAR');
INSERT INTO DataTypes VALUES ('NUMBER');
INSERT INTO DataTypes VALUES ('INTEGER');
INSERT INTO DataTypes VALUES ('FLOAT');
INSERT INTO DataTypes VALUES ('BINARY_FLOAT');
INSERT INTO DataTypes VALUES ('BINARY_DOUBLE');
INSERT INTO DataTypes VALUES ('DATE');
INSERT INTO DataTypes VALUES ('TIMESTAMP');
INSERT INTO DataTypes VALUES ('TIMESTAMP(6)');
INSERT INTO DataTypes VALUES ('TIMESTAMP(6) WITH TIME ZONE');
INSERT INTO DataTypes VALUES ('CLOB');
INSERT INTO DataTypes VALUES ('NCLOB');
INSERT INTO DataTypes VALUES ('BLOB');
INSERT INTO DataTypes VALUES ('BFILE');
INSERT INTO DataTypes VALUES ('RAW');
INSERT INTO DataTypes VALUES ('LONG');
INSERT INTO DataTypes VALUES ('LONG RAW');
INSERT INTO DataTypes VALUES ('ROWID');
INSERT INTO DataTypes VALUES ('[DEFINED BY SOURCE]');

INSERT INTO FunctionTypes VALUES ('[EMPTY]','No function type: the function has only the inputs and outputs given to it.');
INSERT INTO FunctionTypes VALUES ('SAMPLE_FUNCTION_1','Demonstration function of three arguments.');
INSERT INTO FunctionTypes VALUES ('SAMPLE_FUNCTION_2','Demonstration function of three arguments.');
INSERT INTO FunctionTypes VALUES ('APPLY','Any function of one argument.');
INSERT INTO FunctionTypes VALUES ('ADD','Sum of two numbers.');
INSERT INTO FunctionTypes VALUES ('SUBTRACT','First number less the second.');
INSERT INTO FunctionTypes VALUES ('MULTIPLY','Product of two numbers.');
INSERT INTO FunctionTypes VALUES ('DIVIDE','First number divided by the second.');
INSERT INTO FunctionTypes VALUES ('ROUND','Number rounded to a count of decimals.');
INSERT INTO FunctionTypes VALUES ('CONVERT_CURRENCY','Amount in another currency, by its rate.');
INSERT INTO FunctionTypes VALUES ('UPPER','Text in capital letters.');
INSERT INTO FunctionTypes VALUES ('LOWER','Text in small letters.');
INSERT INTO FunctionTypes VALUES ('TRIM','Text without blanks at its ends.');
INSERT INTO FunctionTypes VALUES ('SUBSTRING','Part of a text, from a start position for a length.');
INSERT INTO FunctionTypes VALUES ('REPLACE','Text in which a part is replaced by another.');
INSERT INTO FunctionTypes VALUES ('CONCAT','Two texts joined to one.');
INSERT INTO FunctionTypes VALUES ('LENGTH','Number of characters of a text.');
INSERT INTO FunctionTypes VALUES ('TO_DATE','Date that a text gives in a format.');
INSERT INTO FunctionTypes VALUES ('DATE_TO_TEXT','Text of a date in a format.');
INSERT INTO FunctionTypes VALUES ('TO_NUMBER','Number that a text gives.');
INSERT INTO FunctionTypes VALUES ('NVL','Value, or a substitute where it is null.');
INSERT INTO FunctionTypes VALUES ('SURROGATE_KEY_LOOKUP','Surrogate key of a production key of one source.');
INSERT INTO FunctionTypes VALUES ('SUM','Sum of a value over a group.');
INSERT INTO FunctionTypes VALUES ('COUNT','Number of values in a group.');
INSERT INTO FunctionTypes VALUES ('AVG','Average of a value over a group.');
INSERT INTO FunctionTypes VALUES ('MIN','Lowest value of a group.');
INSERT INTO FunctionTypes VALUES ('MAX','Highest value of a group.');

INSERT INTO FunctionTypesParams VALUES ('SAMPLE_FUNCTION_1','INPUT','Input11','VARCHAR2');
INSERT INTO FunctionTypesParams VALUES ('SAMPLE_FUNCTION_1','INPUT','Input12','VARCHAR2');
INSERT INTO FunctionTypesParams VALUES ('SAMPLE_FUNCTION_1','INPUT','Input13','VARCHAR2');
INSERT INTO FunctionTypesParams VALUES ('SAMPLE_FUNCTION_1','OUTPUT','Output11','VARCHAR2');
INSERT INTO FunctionTypesParams VALUES ('SAMPLE_FUNCTION_2','INPUT','Input21','VARCHAR2');
INSERT INTO FunctionTypesParams VALUES ('SAMPLE_FUNCTION_2','INPUT','Input22','VARCHAR2');
INSERT INTO FunctionTypesParams VALUES ('SAMPLE_FUNCTION_2','INPUT','Input23','VARCHAR2');
INSERT INTO FunctionTypesParams VALUES ('SAMPLE_FUNCTION_2','OUTPUT','Output21','VARCHAR2');
INSERT INTO FunctionTypesParams VALUES ('APPLY','INPUT','Argument','[DEFINED BY SOURCE]');
INSERT INTO FunctionTypesParams VALUES ('APPLY','OUTPUT','Result','[DEFINED BY SOURCE]');
INSERT INTO FunctionTypesParams VALUES ('ADD','INPUT','Operand1','NUMBER');
INSERT INTO FunctionTypesParams VALUES ('ADD','INPUT','Operand2','NUMBER');
INSERT INTO FunctionTypesParams VALUES ('ADD','OUTPUT','Result','NUMBER');
INSERT INTO FunctionTypesParams VALUES ('SUBTRACT','INPUT','Operand1','NUMBER');
INSERT INTO FunctionTypesParams VALUES ('SUBTRACT','INPUT','Operand2','NUMBER');
INSERT INTO FunctionTypesParams VALUES ('SUBTRACT','OUTPUT','Result','NUMBER');
INSERT INTO FunctionTypesParams VALUES ('MULTIPLY','INPUT','Operand1','NUMBER');
INSERT INTO FunctionTypesParams VALUES ('MULTIPLY','INPUT','Operand2','NUMBER');
INSERT INTO FunctionTypesParams VALUES ('MULTIPLY','OUTPUT','Result','NUMBER');
INSERT INTO FunctionTypesParams VALUES ('DIVIDE','INPUT','Operand1','NUMBER');
INSERT INTO FunctionTypesParams VALUES ('DIVIDE','INPUT','Operand2','NUMBER');
INSERT INTO FunctionTypesParams VALUES ('DIVIDE','OUTPUT','Result','NUMBER');
INSERT INTO FunctionTypesParams VALUES ('ROUND','INPUT','Operand','NUMBER');
INSERT INTO FunctionTypesParams VALUES ('ROUND','INPUT','Decimals','NUMBER');
INSERT INTO FunctionTypesParams VALUES ('ROUND','OUTPUT','Result','NUMBER');
INSERT INTO FunctionTypesParams VALUES ('CONVERT_CURRENCY','INPUT','Amount','NUMBER');
INSERT INTO FunctionTypesParams VALUES ('CONVERT_CURRENCY','INPUT','Rate','NUMBER');
INSERT INTO FunctionTypesParams VALUES ('CONVERT_CURRENCY','OUTPUT','Converted','NUMBER');
INSERT INTO FunctionTypesParams VALUES ('UPPER','INPUT','Source','VARCHAR2');
INSERT INTO FunctionTypesParams VALUES ('UPPER','OUTPUT','Result','VARCHAR2');
INSERT INTO FunctionTypesParams VALUES ('LOWER','INPUT','Source','VARCHAR2');
INSERT INTO FunctionTypesParams VALUES ('LOWER','OUTPUT','Result','VARCHAR2');
INSERT INTO FunctionTypesParams VALUES ('TRIM','INPUT','Source','VARCHAR2');
INSERT INTO FunctionTypesParams VALUES ('TRIM','OUTPUT','Result','VARCHAR2');
INSERT INTO FunctionTypesParams VALUES ('SUBSTRING','INPUT','Source','VARCHAR2');
INSERT INTO FunctionTypesParams VALUES ('SUBSTRING','INPUT','Start','NUMBER');
INSERT INTO FunctionTypesParams VALUES ('SUBSTRING','INPUT','Length','NUMBER');
INSERT INTO FunctionTypesParams VALUES ('SUBSTRING','OUTPUT','Result','VARCHAR2');
INSERT INTO FunctionTypesParams VALUES ('REPLACE','INPUT','Source','VARCHAR2');
INSERT INTO FunctionTypesParams VALUES ('REPLACE','INPUT','Part','VARCHAR2');
INSERT INTO FunctionTypesParams VALUES ('REPLACE','INPUT','Replacement','VARCHAR2');
INSERT INTO FunctionTypesParams VALUES ('REPLACE','OUTPUT','Result','VARCHAR2');
INSERT INTO FunctionTypesParams VALUES ('CONCAT','INPUT','First','VARCHAR2');
INSERT INTO FunctionTypesParams VALUES ('CONCAT','INPUT','Second','VARCHAR2');
INSERT INTO FunctionTypesParams VALUES ('CONCAT','OUTPUT','Result','VARCHAR2');
INSERT INTO FunctionTypesParams VALUES ('LENGTH','INPUT','Source','VARCHAR2');
INSERT INTO FunctionTypesParams VALUES ('LENGTH','OUTPUT','Result','NUMBER');
INSERT INTO FunctionTypesParams VALUES ('TO_DATE','INPUT','Source','VARCHAR2');
INSERT INTO FunctionTypesParams VALUES ('TO_DATE','INPUT','Format','VARCHAR2');
INSERT INTO FunctionTypesParams VALUES ('TO_DATE','OUTPUT','Result','DATE');
INSERT INTO FunctionTypesParams VALUES ('DATE_TO_TEXT','INPUT','Source','DATE');
INSERT INTO FunctionTypesParams VALUES ('DATE_TO_TEXT','INPUT','Format','VARCHAR2');
INSERT INTO FunctionTypesParams VALUES ('DATE_TO_TEXT','OUTPUT','Result','VARCHAR2');
INSERT INTO FunctionTypesParams VALUES ('TO_NUMBER','INPUT','Source','VARCHAR2');
INSERT INTO FunctionTypesParams VALUES ('TO_NUMBER','OUTPUT','Result','NUMBER');
INSERT INTO FunctionTypesParams VALUES ('NVL','INPUT','Value','[DEFINED BY SOURCE]');
INSERT INTO FunctionTypesParams VALUES ('NVL','INPUT','Substitute','[DEFINED BY SOURCE]');
INSERT INTO FunctionTypesParams VALUES ('NVL','OUTPUT','Result','[DEFINED BY SOURCE]');
INSERT INTO FunctionTypesParams VALUES ('SURROGATE_KEY_LOOKUP','INPUT','ProductionKey','[DEFINED BY SOURCE]');
INSERT INTO FunctionTypesParams VALUES ('SURROGATE_KEY_LOOKUP','INPUT','SourceId','[DEFINED BY SOURCE]');
INSERT INTO FunctionTypesParams VALUES ('SURROGATE_KEY_LOOKUP','OUTPUT','SurrogateKey','NUMBER');
INSERT INTO FunctionTypesParams VALUES ('SUM','INPUT','Value','NUMBER');
INSERT INTO FunctionTypesParams VALUES ('SUM','OUTPUT','Total','NUMBER');
INSERT INTO FunctionTypesParams VALUES ('COUNT','INPUT','Value','[DEFINED BY SOURCE]');
INSERT INTO FunctionTypesParams VALUES ('COUNT','OUTPUT','Total','NUMBER');
INSERT INTO FunctionTypesParams VALUES ('AVG','INPUT','Value','NUMBER');
INSERT INTO FunctionTypesParams VALUES ('AVG','OUTPUT','Average','NUMBER');
INSERT INTO FunctionTypesParams VALUES ('MIN','INPUT','Value','[DEFINED BY SOURCE]');
INSERT INTO FunctionTypesParams VALUES ('MIN','OUTPUT','Lowest','[DEFINED BY SOURCE]');
INSERT INTO FunctionTypesParams VALUES ('MAX','INPUT','Value','[DEFINED BY SOURCE]');
INSERT INTO FunctionTypesParams VALUES ('MAX','OUTPUT','Highest','[DEFINED BY SOURCE]');

INSERT INTO ActivityTypes VALUES ('Sample Derivation',
'Demonstration type: adds the attribute Output12, which takes Value12. Value12 is what the function Fun12 computes from the inputs Arg12 and the constant Param12.',
'SELECT [INPUTS] , Fun12(Input11, Input12, Param12) AS Output12 FROM [SOURCES]',
1,2,2,
'a_out_value(A_IN1_1[1<i<arityOf(a_in1)+1]{,A_IN1_$i$},Value)<-a_in1(A_IN1_1[1<i<arityOf(a_in1)+1]{,A_IN1_$i$}),@Fun12(@Arg12[1][1<i<arityOf(@Arg12)+1]{,@Arg12[$i$]},@Param12,@Value12),Value=@Value12. a_out(A_OUT_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$},@Output12)<-a_out_value(A_OUT_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$},@Output12).');
INSERT INTO ActivityTypesParams VALUES ('Sample Derivation','PARAM','Param12','VARCHAR2');
INSERT INTO ActivityTypesParams VALUES ('Sample Derivation','OUTPUT','Output12','VARCHAR2');
INSERT INTO ActivityTypesFunctions VALUES ('Sample Derivation','Fun12','SAMPLE_FUNCTION_1');

INSERT INTO ActivityTypes VALUES ('Sample Combination',
'Demonstration type: combines the rows of all its sources, keeps one input Kept for each output and adds Output22, which takes Value22. Value22 is what the function Fun22 computes from the inputs Arg22. SourceCount is the number of sources.',
'SELECT Kept_1 , Fun22(Input21, Input22, Input23) AS Output22 FROM [SOURCES]',
2,2,2,
'a_out_value(@Kept[1][1<i<arityOf(@Kept)+1]{,@Kept[$i$]},Value)<-a_in1(A_IN1_1[1<i<arityOf(a_in1)+1]{,A_IN1_$i$})[1<k<@SourceCount+1]{,a_in$k$(A_IN$k$_1[1<i<arityOf(a_in$k$)+1]{,A_IN$k$_$i$})},@Fun22(@Arg22[1][1<i<arityOf(@Arg22)+1]{,@Arg22[$i$]},@Value22),Value=@Value22. a_out(A_OUT_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$},@Output22)<-a_out_value(A_OUT_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$},@Output22).');
INSERT INTO ActivityTypesParams VALUES ('Sample Combination','PARAM','SourceCount','NUMBER');
INSERT INTO ActivityTypesParams VALUES ('Sample Combination','PARAM','Kept_1','[DEFINED BY SOURCE]');
INSERT INTO ActivityTypesParams VALUES ('Sample Combination','OUTPUT','Output22','VARCHAR2');
INSERT INTO ActivityTypesFunctions VALUES ('Sample Combination','Fun22','SAMPLE_FUNCTION_2');
INSERT INTO ActivityTypesFunctions VALUES ('Sample Combination','MyFun','SAMPLE_FUNCTION_1');

INSERT INTO ActivityTypes VALUES ('Sample Transfer',
'Demonstration type: passes every row on and adds Output31, which takes the constant Stamp.',
'SELECT [INPUTS] , Stamp AS Output31 FROM [SOURCES]',
1,2,2,
'a_out_stamped(A_IN1_1[1<i<arityOf(a_in1)+1]{,A_IN1_$i$},@Stamp)<-a_in1(A_IN1_1[1<i<arityOf(a_in1)+1]{,A_IN1_$i$}). a_out(A_OUT_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$},@Output31)<-a_out_stamped(A_OUT_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$},@Output31).');
INSERT INTO ActivityTypesParams VALUES ('Sample Transfer','PARAM','Stamp','VARCHAR2');
INSERT INTO ActivityTypesParams VALUES ('Sample Transfer','OUTPUT','Output31','VARCHAR2');

INSERT INTO ActivityTypes VALUES ('Selection',
'Passes the rows for which FIELD compares with VALUE as OPERATOR says. OPERATOR is a constant such as > or =, VALUE a constant or another input. The outputs are the inputs in order.',
'SELECT [INPUTS] FROM [SOURCES] WHERE FIELD OPERATOR VALUE',
1,2,2,
'a_out(A_OUT_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$})<-a_in1(A_IN1_1[1<i<arityOf(a_in1)+1]{,A_IN1_$i$}),@FIELD @OPERATOR @VALUE,A_OUT_1=A_IN1_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$=A_IN1_$i$}.');
INSERT INTO ActivityTypesParams VALUES ('Selection','PARAM','FIELD','[DEFINED BY SOURCE]');
INSERT INTO ActivityTypesParams VALUES ('Selection','PARAM','OPERATOR','VARCHAR2');
INSERT INTO ActivityTypesParams VALUES ('Selection','PARAM','VALUE','[DEFINED BY SOURCE]');

INSERT INTO ActivityTypes VALUES ('Projection',
'Keeps chosen attributes of every row. Each output takes the KEPT input of the same position.',
'SELECT KEPT_1 FROM [SOURCES]',
1,2,2,
'a_out(A_OUT_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$})<-a_in1(A_IN1_1[1<i<arityOf(a_in1)+1]{,A_IN1_$i$}),A_OUT_1=@KEPT[1][1<i<arityOf(a_out)+1]{,A_OUT_$i$=@KEPT[$i$]}.');
INSERT INTO ActivityTypesParams VALUES ('Projection','PARAM','KEPT_1','[DEFINED BY SOURCE]');

INSERT INTO ActivityTypes VALUES ('Not Null Check',
'Passes the rows in which none of the CHECKED inputs is null. The outputs are the inputs in order.',
'SELECT [INPUTS] FROM [SOURCES] WHERE CHECKED_1 IS NOT NULL',
1,2,2,
'a_out(A_OUT_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$})<-a_in1(A_IN1_1[1<i<arityOf(a_in1)+1]{,A_IN1_$i$}),not isNull(@CHECKED[1])[1<i<arityOf(@CHECKED)+1]{,not isNull(@CHECKED[$i$])},A_OUT_1=A_IN1_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$=A_IN1_$i$}.');
INSERT INTO ActivityTypesParams VALUES ('Not Null Check','PARAM','CHECKED_1','[DEFINED BY SOURCE]');

INSERT INTO ActivityTypes VALUES ('Domain Check',
'Passes the rows in which FIELD lies between LOWVALUE and HIGHVALUE, both included. The outputs are the inputs in order.',
'SELECT [INPUTS] FROM [SOURCES] WHERE FIELD >= LOWVALUE AND FIELD <= HIGHVALUE',
1,2,2,
'a_out(A_OUT_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$})<-a_in1(A_IN1_1[1<i<arityOf(a_in1)+1]{,A_IN1_$i$}),@FIELD>=@LOWVALUE,@FIELD<=@HIGHVALUE,A_OUT_1=A_IN1_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$=A_IN1_$i$}.');
INSERT INTO ActivityTypesParams VALUES ('Domain Check','PARAM','FIELD','[DEFINED BY SOURCE]');
INSERT INTO ActivityTypesParams VALUES ('Domain Check','PARAM','LOWVALUE','[DEFINED BY SOURCE]');
INSERT INTO ActivityTypesParams VALUES ('Domain Check','PARAM','HIGHVALUE','[DEFINED BY SOURCE]');

INSERT INTO ActivityTypes VALUES ('Primary Key Check',
'Passes the rows whose KEYATTR inputs hold values that no other row of the flow holds. A NULL equals nothing, so rows with a NULL in a key all pass. The outputs are the inputs in order.',
'SELECT [INPUTS] FROM [SOURCES] WHERE KEYATTR_1 IN ( SELECT KEYATTR_1 FROM [SOURCES] GROUP BY KEYATTR_1 HAVING COUNT(*) = 1 )',
1,2,2,
'[j<arityOf(a_in1)+1]{a_out_twice(@KEYATTR[1][1<i<arityOf(@KEYATTR)+1]{,@KEYATTR[$i$]})<-a_in1(A_IN1_1[1<i<arityOf(a_in1)+1]{,A_IN1_$i$}),a_in1(OTHER_A_IN1_1[1<i<arityOf(a_in1)+1]{,OTHER_A_IN1_$i$}),@KEYATTR[1]=OTHER_@KEYATTR[1][1<i<arityOf(@KEYATTR)+1]{,@KEYATTR[$i$]=OTHER_@KEYATTR[$i$]},A_IN1_$j$!=OTHER_A_IN1_$j$. }a_out(A_OUT_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$})<-a_in1(A_IN1_1[1<i<arityOf(a_in1)+1]{,A_IN1_$i$}),not a_out_twice(@KEYATTR[1][1<i<arityOf(@KEYATTR)+1]{,@KEYATTR[$i$]}),A_OUT_1=A_IN1_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$=A_IN1_$i$}.');
INSERT INTO ActivityTypesParams VALUES ('Primary Key Check','PARAM','KEYATTR_1','[DEFINED BY SOURCE]');

INSERT INTO ActivityTypes VALUES ('Foreign Key Check',
'Passes the rows that have a partner in the record set REFTABLE. REFCOLUMN lists the columns of REFTABLE in order: an input where the column must match, the column itself elsewhere. A NULL matches nothing. The outputs are the inputs in order.',
'SELECT [INPUTS] FROM [SOURCES] WHERE REFCOLUMN_1 IN ( SELECT REFCOLUMN_1 FROM REFTABLE )',
1,2,2,
'a_out(A_OUT_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$})<-a_in1(A_IN1_1[1<i<arityOf(a_in1)+1]{,A_IN1_$i$}),@REFTABLE(Ref1_@REFCOLUMN[1][1<i<arityOf(@REFCOLUMN)+1]{,Ref$i$_@REFCOLUMN[$i$]})[k<arityOf(@REFCOLUMN)+1]{[i<arityOf(a_in1)+1]{,Ref$k$_A_IN1_$i$=A_IN1_$i$}},A_OUT_1=A_IN1_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$=A_IN1_$i$}.');
INSERT INTO ActivityTypesParams VALUES ('Foreign Key Check','PARAM','REFCOLUMN_1','[DEFINED BY SOURCE]');

INSERT INTO ActivityTypes VALUES ('Duplicate Removal',
'Keeps one row for each value of the KEYATTR inputs: the one with the lowest ORDERATTR, which must differ among the rows of one key. The outputs are the inputs in order.',
'SELECT [INPUTS] FROM [SOURCES] a WHERE NOT EXISTS ( SELECT * FROM [SOURCES] b WHERE b.KEYATTR_1 = a.KEYATTR_1 AND b.ORDERATTR < a.ORDERATTR )',
1,2,2,
'a_out_surplus(@KEYATTR[1][1<i<arityOf(@KEYATTR)+1]{,@KEYATTR[$i$]},@ORDERATTR)<-a_in1(A_IN1_1[1<i<arityOf(a_in1)+1]{,A_IN1_$i$}),a_in1(OTHER_A_IN1_1[1<i<arityOf(a_in1)+1]{,OTHER_A_IN1_$i$}),@KEYATTR[1]=OTHER_@KEYATTR[1][1<i<arityOf(@KEYATTR)+1]{,@KEYATTR[$i$]=OTHER_@KEYATTR[$i$]},@ORDERATTR>OTHER_@ORDERATTR. a_out(A_OUT_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$})<-a_in1(A_IN1_1[1<i<arityOf(a_in1)+1]{,A_IN1_$i$}),not a_out_surplus(@KEYATTR[1][1<i<arityOf(@KEYATTR)+1]{,@KEYATTR[$i$]},@ORDERATTR),A_OUT_1=A_IN1_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$=A_IN1_$i$}.');
INSERT INTO ActivityTypesParams VALUES ('Duplicate Removal','PARAM','KEYATTR_1','[DEFINED BY SOURCE]');
INSERT INTO ActivityTypesParams VALUES ('Duplicate Removal','PARAM','ORDERATTR','[DEFINED BY SOURCE]');

INSERT INTO ActivityTypes VALUES ('Surrogate Key Assignment',
'Adds SKEY, the surrogate key that the record set LOOKUPTABLE holds for the production key. LOOKUPTABLE has three columns in this order: production key, source, surrogate key. PRODKEY is the input that holds the production key, SOURCEID a constant that names the source. SKVALUE is the third column of LOOKUPTABLE. Rows without a key there, or whose key there is NULL, are left out.',
'SELECT [INPUTS] , SKVALUE AS SKEY FROM [SOURCES] , LOOKUPTABLE l WHERE l.PRODKEY = PRODKEY AND l.SOURCEID = SOURCEID',
1,2,2,
'a_out_found(A_IN1_1[1<i<arityOf(a_in1)+1]{,A_IN1_$i$},Found)<-a_in1(A_IN1_1[1<i<arityOf(a_in1)+1]{,A_IN1_$i$}),@LOOKUPTABLE(@PRODKEY,@SOURCEID,@SKVALUE),not isNull(@SKVALUE),Found=@SKVALUE. a_out(A_OUT_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$},@SKEY)<-a_out_found(A_OUT_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$},@SKEY).');
INSERT INTO ActivityTypesParams VALUES ('Surrogate Key Assignment','PARAM','SKVALUE','NUMBER');
INSERT INTO ActivityTypesParams VALUES ('Surrogate Key Assignment','PARAM','PRODKEY','[DEFINED BY SOURCE]');
INSERT INTO ActivityTypesParams VALUES ('Surrogate Key Assignment','PARAM','SOURCEID','[DEFINED BY SOURCE]');
INSERT INTO ActivityTypesParams VALUES ('Surrogate Key Assignment','OUTPUT','SKEY','NUMBER');
INSERT INTO ActivityTypesFunctions VALUES ('Surrogate Key Assignment','LookupKey','SURROGATE_KEY_LOOKUP');

INSERT INTO ActivityTypes VALUES ('Difference',
'Passes the rows of the first source whose KEYFIRST inputs match the KEYSECOND inputs of no row of the second source. A NULL matches nothing, so rows with a NULL in a key pass. The outputs are the inputs of the first source in order.',
'SELECT [INPUTS1] FROM [SOURCES1] WHERE KEYFIRST_1 NOT IN ( SELECT KEYSECOND_1 FROM [SOURCES2] )',
2,2,2,
'a_out(A_OUT_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$})<-a_in1(A_IN1_1[1<i<arityOf(a_in1)+1]{,A_IN1_$i$}),not a_out_known(@KEYFIRST[1][1<i<arityOf(@KEYFIRST)+1]{,@KEYFIRST[$i$]}),A_OUT_1=A_IN1_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$=A_IN1_$i$}. a_out_known(@KEYSECOND[1][1<i<arityOf(@KEYSECOND)+1]{,@KEYSECOND[$i$]})<-a_in2(A_IN2_1[1<i<arityOf(a_in2)+1]{,A_IN2_$i$}).');
INSERT INTO ActivityTypesParams VALUES ('Difference','PARAM','KEYSECOND_1','[DEFINED BY SOURCE]');
INSERT INTO ActivityTypesParams VALUES ('Difference','PARAM','KEYFIRST_1','[DEFINED BY SOURCE]');

INSERT INTO ActivityTypes VALUES ('Aggregation',
'Gives one row for each group of equal GROUPATTR inputs, with TOTAL, which takes AGGRVALUE. AGGRVALUE is the aggregate AGGRNAME (sum, count, avg, min or max) of MEASURE over the different rows of the group: equal rows count once. The other outputs are the GROUPATTR inputs in order.',
'SELECT GROUPATTR_1 , AGGRNAME(MEASURE) AS TOTAL FROM [SOURCES] GROUP BY GROUPATTR_1',
1,2,2,
'a_out_group(@GROUPATTR[1][1<i<arityOf(@GROUPATTR)+1]{,@GROUPATTR[$i$]},@AGGRNAME<@MEASURE>)<-a_in1(A_IN1_1[1<i<arityOf(a_in1)+1]{,A_IN1_$i$}). a_out_result(A_OUT_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$},@AGGRVALUE)<-a_out_group(A_OUT_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$},@AGGRVALUE). a_out(A_OUT_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$},@TOTAL)<-a_out_result(A_OUT_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$},@TOTAL).');
INSERT INTO ActivityTypesParams VALUES ('Aggregation','PARAM','GROUPATTR_1','[DEFINED BY SOURCE]');
INSERT INTO ActivityTypesParams VALUES ('Aggregation','OUTPUT','TOTAL','NUMBER');
INSERT INTO ActivityTypesFunctions VALUES ('Aggregation','Aggregate','SUM');

INSERT INTO ActivityTypes VALUES ('Join',
'Combines the rows of two sources whose KEYFIRST inputs equal the KEYSECOND inputs. Each output takes the RESULT input of the same position.',
'SELECT [INPUTS1] , [INPUTS2] FROM [SOURCES1] , [SOURCES2] WHERE KEYFIRST_1 = KEYSECOND_1',
2,2,2,
'a_out(A_OUT_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$})<-a_in1(A_IN1_1[1<i<arityOf(a_in1)+1]{,A_IN1_$i$}),a_in2(A_IN2_1[1<i<arityOf(a_in2)+1]{,A_IN2_$i$}),@KEYFIRST[1]=@KEYSECOND[1][1<i<arityOf(@KEYFIRST)+1]{,@KEYFIRST[$i$]=@KEYSECOND[$i$]},A_OUT_1=@RESULT[1][1<i<arityOf(a_out)+1]{,A_OUT_$i$=@RESULT[$i$]}.');
INSERT INTO ActivityTypesParams VALUES ('Join','PARAM','KEYFIRST_1','[DEFINED BY SOURCE]');
INSERT INTO ActivityTypesParams VALUES ('Join','PARAM','KEYSECOND_1','[DEFINED BY SOURCE]');
INSERT INTO ActivityTypesParams VALUES ('Join','PARAM','RESULT_1','[DEFINED BY SOURCE]');

INSERT INTO ActivityTypes VALUES ('Union',
'Passes the rows of two sources of the same attributes in the same order. The outputs are the inputs of each source in order.',
'SELECT [INPUTS1] FROM [SOURCES1] UNION SELECT [INPUTS2] FROM [SOURCES2]',
2,2,2,
'a_out(A_OUT_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$})<-a_in1(A_IN1_1[1<i<arityOf(a_in1)+1]{,A_IN1_$i$}),A_OUT_1=A_IN1_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$=A_IN1_$i$}. a_out(A_OUT_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$})<-a_in2(A_IN2_1[1<i<arityOf(a_in2)+1]{,A_IN2_$i$}),A_OUT_1=A_IN2_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$=A_IN2_$i$}.');

INSERT INTO ActivityTypes VALUES ('Attribute Function',
'Adds NEWFIELD, which takes FUNCVALUE. FUNCVALUE is what the function FUNCNAME gives for its ARGUMENT inputs, as its last argument.',
'SELECT [INPUTS] , FUNCNAME(ARGUMENT_1) AS NEWFIELD FROM [SOURCES]',
1,2,2,
'a_out_value(A_IN1_1[1<i<arityOf(a_in1)+1]{,A_IN1_$i$},Value)<-a_in1(A_IN1_1[1<i<arityOf(a_in1)+1]{,A_IN1_$i$}),@FUNCNAME(@ARGUMENT[1][1<i<arityOf(@ARGUMENT)+1]{,@ARGUMENT[$i$]},@FUNCVALUE),Value=@FUNCVALUE. a_out(A_OUT_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$},@NEWFIELD)<-a_out_value(A_OUT_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$},@NEWFIELD).');
INSERT INTO ActivityTypesParams VALUES ('Attribute Function','OUTPUT','NEWFIELD','[DEFINED BY SOURCE]');
INSERT INTO ActivityTypesFunctions VALUES ('Attribute Function','Apply','APPLY');

INSERT INTO ActivityTypes VALUES ('Loader Append',
'Adds the rows of the flow to what the record set TARGET already holds. The outputs are the inputs in order, and the columns of TARGET in order.',
'INSERT INTO TARGET SELECT [INPUTS] FROM [SOURCES]',
1,2,2,
'a_out(A_OUT_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$})<-@TARGET(A_OUT_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$}). a_out(A_OUT_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$})<-a_in1(A_IN1_1[1<i<arityOf(a_in1)+1]{,A_IN1_$i$}),A_OUT_1=A_IN1_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$=A_IN1_$i$}.');

INSERT INTO ActivityTypes VALUES ('Loader Overwrite',
'Fills the target with the rows of the flow, which take the place of what it held before. The old table is dropped first. The outputs are the inputs in order.',
'CREATE TABLE TARGET AS SELECT [INPUTS] FROM [SOURCES]',
1,2,1,
'a_out(A_OUT_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$})<-a_in1(A_IN1_1[1<i<arityOf(a_in1)+1]{,A_IN1_$i$}),A_OUT_1=A_IN1_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$=A_IN1_$i$}.');