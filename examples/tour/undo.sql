-- Takes the last audited transaction back: stage it, reverse it, look, commit. Between the last two steps
-- AUDIT_prc_RollbackUndo would leave everything as it is.
DECLARE @last int
SELECT @last = MAX(AUDIT_LOG_TRANSACTION_ID) FROM AUDIT_LOG_TRANSACTIONS
EXEC AUDIT_prc_AddAuditUndoItem @last
GO
EXEC AUDIT_prc_RunUndo
GO
SELECT COUNT(*) AS Customers, SUM(CreditLimit) AS AllCredit FROM Customer
GO
EXEC AUDIT_prc_CommitUndo
GO
